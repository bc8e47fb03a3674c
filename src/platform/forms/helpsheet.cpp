#include "platform/forms/helpsheet.h"

#include "platform/forms/aboutbox.h"

#include <QGridLayout>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

using namespace Qt::StringLiterals;

namespace {

QWidget* pageOf(const QList<HelpSection>& sections)
{
    const auto [page, grid] = Help::card();
    grid->setColumnStretch(1, 1);
    int row = 0;
    for (const HelpSection& section : sections) {
        if (row > 0)
            grid->setRowMinimumHeight(row++, 12);
        grid->addWidget(Help::label(section.title, u"heading"_s), row++, 0, 1, 2);
        QString above;
        for (const HelpLine& line : section.lines) {
            if (line.keys != above) // a key that does several things is named once
                grid->addWidget(Help::label(line.keys, u"strong"_s), row, 0, Qt::AlignTop);
            above = line.keys;
            auto* what = Help::label(line.what, u"value"_s);
            what->setWordWrap(true);
            grid->addWidget(what, row++, 1);
        }
    }
    grid->setRowStretch(row, 1);
    return page;
}

} // namespace

Help::Card Help::card()
{
    auto* frame = new QFrame;
    frame->setProperty("role", u"card"_s);
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(16, 16, 16, 16);
    grid->setHorizontalSpacing(16);
    grid->setVerticalSpacing(4);
    return {frame, grid};
}

QLabel* Help::label(const QString& text, const QString& role)
{
    auto* made = new QLabel(text);
    made->setTextFormat(Qt::PlainText);
    made->setProperty("role", role);
    return made;
}

HelpSheet::HelpSheet(const QString& screen, const QList<HelpSection>& sections) : page_(pageOf(sections))
{
    setWindowTitle(u"Ajuda - "_s + screen);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    auto* area = new QScrollArea;
    area->setObjectName(u"folha"_s);
    area->setWidget(page_);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::StrongFocus); // the arrow keys move it
    column->addWidget(area, 1);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    auto* program = new QPushButton(u"Sobre"_s);
    program->setObjectName(u"cmdsobre"_s);
    auto* close = new QPushButton(u"Fechar"_s);
    close->setObjectName(u"cmdfechar"_s);
    close->setProperty("role", u"primary"_s);
    buttons->addWidget(program);
    buttons->addStretch();
    buttons->addWidget(close);
    column->addLayout(buttons);
    onClick(program, &HelpSheet::about);
    onClick(close, &HelpSheet::Unload);
}

/// As high as its lines, if the workstation's screen has room for them.
QSize HelpSheet::openingSize() const
{
    const int letters = fontMetrics().averageCharWidth();
    const int width = 16 * 2 + qMax(page_->sizeHint().width(), letters * 70);
    const int around = sizeHint().height() - page_->parentWidget()->parentWidget()->sizeHint().height();
    const int whole = page_->heightForWidth(width - 16 * 2) + around;
    return {width, qMin(whole, screen()->availableGeometry().height() * 9 / 10)};
}

void HelpSheet::about()
{
    AboutBox().ShowModal();
}
