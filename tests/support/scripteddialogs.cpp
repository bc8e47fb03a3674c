#include "support/scripteddialogs.h"

#include "support/report.h"

using namespace Qt::StringLiterals;

class ScriptedDialogs::Stand : public Dialogs
{
public:
    explicit Stand(ScriptedDialogs& script) : script_(script) {}

    Answer message(const MessageBox& box) override
    {
        if (script_.watcher_)
            script_.watcher_(box);
        const bool question = box.buttons == Buttons::YesNo;
        const auto found = script_.next(question ? Kind::Question : Kind::Message, box.text, box.title);
        if (found && found->icon && *found->icon != box.icon)
            Report::fail(u"the box \"%1\" has another icon"_s.arg(box.text));
        if (!question)
            return Answer::Ok;
        if (box.standard != Answer::No)
            Report::fail(u"the question \"%1\" does not default to No"_s.arg(box.text));
        return found && found->yes ? Answer::Yes : Answer::No;
    }

    std::optional<QString> input(const QString& prompt, const QString& title, const QString&) override
    {
        const auto found = script_.next(Kind::Input, prompt, title);
        return found ? found->answer : std::nullopt;
    }

    std::optional<QString> file(const FileDialog& dialog) override
    {
        Report::fail(u"unexpected choice of a file (%1)"_s.arg(dialog.title));
        return {};
    }

private:
    ScriptedDialogs& script_;
};

ScriptedDialogs::ScriptedDialogs() : before_(Dialogs::install(std::make_unique<Stand>(*this))) {}

ScriptedDialogs::~ScriptedDialogs()
{
    verify();
    Dialogs::install(std::move(before_));
}

void ScriptedDialogs::expect(const QString& text, const QString& title, std::optional<Icon> icon)
{
    expected_ << Expected{Kind::Message, text, title, icon, false, {}};
}

void ScriptedDialogs::expectQuestion(const QString& text, bool yes, const QString& title,
                                     std::optional<Icon> icon)
{
    expected_ << Expected{Kind::Question, text, title, icon, yes, {}};
}

void ScriptedDialogs::expectInput(const QString& prompt, const std::optional<QString>& answer,
                                  const QString& title)
{
    expected_ << Expected{Kind::Input, prompt, title, {}, false, answer};
}

void ScriptedDialogs::verify()
{
    for (const Expected& one : expected_)
        Report::fail(u"the box \"%1\" did not come"_s.arg(one.text));
    expected_.clear();
}

std::optional<ScriptedDialogs::Expected> ScriptedDialogs::next(Kind kind, const QString& text,
                                                               const QString& title)
{
    if (expected_.isEmpty()) {
        Report::fail(u"unexpected box \"%1\" (%2)"_s.arg(text, title));
        return {};
    }
    const Expected one = expected_.takeFirst();
    if (one.kind != kind || one.text != text || (!one.title.isEmpty() && one.title != title)) {
        Report::fail(u"the box \"%1\" (%2) came where \"%3\" (%4) was expected"_s.arg(text, title, one.text,
                                                                                      one.title));
        return {};
    }
    return one;
}
