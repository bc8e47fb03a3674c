#pragma once

#include "platform/forms/dialogs.h"

#include <QList>

/// Answers the boxes of the program from a prepared list, in order. A box that is not the next one expected
/// fails at once and is cancelled; so does an expectation left over at the end.
class ScriptedDialogs
{
public:
    ScriptedDialogs();
    ~ScriptedDialogs();
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;

    /// A box of exactly this text, answered with its only button.
    void expect(const QString& text, const QString& title = {}, std::optional<Icon> icon = {});
    /// A question of exactly this text.
    void expectQuestion(const QString& text, bool yes, const QString& title = {},
                        std::optional<Icon> icon = {});
    /// An input box with exactly this prompt; nothing cancels it.
    void expectInput(const QString& prompt, const std::optional<QString>& answer, const QString& title = {});

    /// Fails for what is still expected, and forgets it.
    void verify();

    /// What happens while a box stands open, such as taking its picture; it gets the box that is asked.
    void setWatcher(std::function<void(const MessageBox&)> watcher) { watcher_ = std::move(watcher); }

private:
    enum class Kind
    {
        Message,
        Question,
        Input
    };
    struct Expected
    {
        Kind kind;
        QString text;
        QString title;
        std::optional<Icon> icon;
        bool yes;
        std::optional<QString> answer;
    };
    class Stand;

    std::optional<Expected> next(Kind kind, const QString& text, const QString& title);

    QList<Expected> expected_;
    std::function<void(const MessageBox&)> watcher_;
    std::unique_ptr<Dialogs> before_;
};
