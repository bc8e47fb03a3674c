#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <vector>

/// The main menu as data: what the main window shows, the login sets, the user screen lists and the search
/// dialogs ask. An entry's name is the name of its right.
class Menu : public QObject
{
    Q_OBJECT

public:
    struct Entry
    {
        QString name;
        QString caption;
        QString description; ///< one sentence that tells what the entry is for
        int level =
            0; ///< 0 stands in the bar; a deeper entry belongs to the nearest one above that is one level up
        bool isHead = false; ///< opens a sub-menu and nothing else
        bool enabled = true;
        std::function<void()> action;
    };

    /// The one menu of the program.
    static Menu& principal();

    /// All entries, from the first to the last.
    const std::vector<Entry>& entries() const { return entries_; }

    /// Both compare names to the letter. Throws RuntimeError 9 for a name that no entry has.
    bool enabled(const QString& name) const;
    void setEnabled(const QString& name, bool enabled);
    void disableAll();

    /// What a click on the entry does. Throws RuntimeError 9.
    void bind(const QString& name, std::function<void()> action);

    /// Does what the entry is for; an entry without an action says that its screen does not exist yet.
    void run(const QString& name);

    /// Says that what `caption` names is not in this version.
    static void notYet(const QString& caption);

Q_SIGNALS:
    void enabledChanged(const Menu::Entry& entry);

private:
    Menu();
    std::size_t indexOf(const QString& name) const;
    void put(std::size_t index, bool enabled);

    std::vector<Entry> entries_;
};
