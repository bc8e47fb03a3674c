#include "../../tools/tour/cuttexts.h"

#include "support/print.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// What is cut of a control that gets such a part of the size that it asks for.
template <class Control>
QString cut(const QString& text, double width, double height)
{
    QWidget window;
    auto* control = new Control(&window);
    control->setObjectName(u"control"_s);
    if constexpr (std::is_same_v<Control, QComboBox>)
        control->addItem(text);
    else
        control->setText(text);
    window.resize(1000, 300);
    window.show();
    const QSize asked = control->sizeHint();
    control->resize(qRound(asked.width() * width), qRound(asked.height() * height));
    return cutTexts(window).join(u"; "_s);
}

} // namespace

TEST(CutTexts, WhatDoesNotFit)
{
    const struct
    {
        QString found, says; ///< "" for a text that is whole
    } rows[] = {
        {cut<QLabel>(u"MUNICÍPIO"_s, 1, 1), {}},
        {cut<QLabel>(u"MUNICÍPIO"_s, 0.9, 1), u"is"_s},
        {cut<QLabel>(u"MUNICÍPIO"_s, 1, 0.7), u"loses"_s},
        {cut<QLabel>(u"MUNICIPIO"_s, 1, 0.7), {}},          // without the accent it has room
        {cut<QLabel>(u"Digite seu nome   "_s, 0.5, 1), {}}, // it moves
        {cut<QLabel>(u"ANA            |1|200,00"_s, 0.5, 1), {}},
        {cut<QLineEdit>(u"MUNICÍPIO"_s, 0.2, 1), {}},
        {cut<QPushButton>(u"Confirmação de Notificação"_s, 1, 1), {}},
        {cut<QPushButton>(u"Confirmação de Notificação"_s, 0.8, 1), u"is"_s},
        {cut<QComboBox>(u"0 - NÃO"_s, 1, 1), {}},
        {cut<QComboBox>(u"0 - NÃO"_s, 0.5, 1), u"is"_s},
    };
    for (const auto& row : rows)
        if (row.says.isEmpty())
            EXPECT_EQ(row.found, QString());
        else
            EXPECT_TRUE(row.found.startsWith(u"control: \""_s) &&
                        row.found.contains(u"\" %1 "_s.arg(row.says)))
                << row.found.toStdString();
}

TEST(CutTexts, HeadingsAndNeighbours)
{
    QWidget window;
    window.resize(600, 300);
    QLabel under(u"Data"_s, &window);
    under.setObjectName(u"under"_s);
    QLineEdit over(&window);
    over.setObjectName(u"over"_s);
    QTableWidget grid(1, 2, &window);
    grid.setObjectName(u"grid"_s);
    grid.setHorizontalHeaderLabels({u"DT.NASCIMENTO"_s, u"UF"_s});
    grid.verticalHeader()->hide();
    grid.setColumnWidth(0, 40);
    grid.setGeometry(10, 100, 400, 150);
    under.setGeometry(10, 10, 100, 30);
    over.setGeometry(10, 35, 100, 30);
    window.show();
    const QString found = cutTexts(window).join(u'\n');
    EXPECT_EQ(found.count(u'\n'), 1) << found.toStdString();
    EXPECT_TRUE(found.contains(u" lies over "_s));
    EXPECT_TRUE(found.contains(u"grid: the heading \"DT.NASCIMENTO\" needs"_s));
}
