#pragma once

#include <QApplication>
#include <functional>

/// The application object. An exception that leaves an event handler ends up here, in one place: the error's
/// number, description and detail are shown in one critical box, and the program ends with status 1. What
/// the workstation could not open is told in a box as well, with its place.
class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    /// Ends the program at once, whatever windows are open: no handler of any window runs any more, and what
    /// the database server still holds open for this process it takes back.
    [[noreturn]] static void end(int status);

    /// Shows the error's number, description and detail in one critical box.
    static void tell(const std::exception& error);

    /// Tells the error and ends the program with status 1.
    [[noreturn]] static void fail(const std::exception& error);

    /// Puts another action in the place of fail(); an empty one gives it back. The handler may return: the
    /// event then counts as handled.
    static void setFailureHandler(std::function<void(const std::exception&)> handler);

    /// The program's language and decimal comma, for Qt and for the C library's readers of numbers alike.
    static void setBrazilianLocale();

private:
    void speakPortuguese();
};
