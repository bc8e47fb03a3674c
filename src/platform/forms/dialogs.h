#pragma once

#include <QString>
#include <memory>
#include <optional>

/// The boxes that stop a user for an answer. The free functions below ask whatever is installed: real windows
/// in the program, a prepared list of answers in a test.

enum class Icon
{
    None,
    Information,
    Question,
    Exclamation,
    Critical
};
enum class Buttons
{
    Ok,
    YesNo
};
enum class Answer
{
    Ok,
    Yes,
    No
};

struct MessageBox
{
    QString text; ///< Plain text; line feeds break lines.
    QString title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    Answer standard = Answer::Ok; ///< The button that Enter presses. Closing the box answers No, or Ok.
};

struct FileDialog
{
    QString title;
    QString filter; ///< Pairs of name and pattern, such as "Text files (*.txt)|*.txt|All files (*.*)|*.*".
    QString defaultExtension;
    QString proposal;
    bool save = false;
};

class Dialogs
{
public:
    virtual ~Dialogs() = default;
    virtual Answer message(const MessageBox& box) = 0;
    virtual std::optional<QString> input(const QString& prompt, const QString& title,
                                         const QString& proposal) = 0;
    virtual std::optional<QString> file(const FileDialog& dialog) = 0;

    /// Puts other boxes in the place of those installed and hands these back; null installs the real windows.
    static std::unique_ptr<Dialogs> install(std::unique_ptr<Dialogs> dialogs);
};

Answer MsgBox(const QString& text, const QString& title, Icon icon = Icon::None);

/// A question with "Sim" and "Não", No being the default; true for Yes.
bool MsgYesNo(const QString& text, const QString& title, Icon icon = Icon::Question);

/// The typed text, which may be empty; nothing where the user cancels.
std::optional<QString> InputBox(const QString& prompt, const QString& title, const QString& proposal = {});

/// The chosen path; nothing where the user cancels.
std::optional<QString> FileBox(const FileDialog& dialog);

/// How many boxes and modal screens have been opened so far: whoever runs a handler can tell whether it
/// opened one.
int modalCount();
void countModal();
