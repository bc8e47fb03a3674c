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

/// What a control's text suffers that gets such a part of the size that it asks for: "is" too wide, "loses"
/// of its height, or nothing.
template <class Control>
QString cut(const QString& text, double width, double height)
{
    QWidget window;
    auto* control = new Control(&window);
    if constexpr (std::is_same_v<Control, QComboBox>)
        control->addItem(text);
    else
        control->setText(text);
    window.resize(1000, 300);
    window.show();
    const QSize asked = control->sizeHint();
    control->resize(qRound(asked.width() * width), qRound(asked.height() * height));
    return cutTexts(window).join(u"; "_s).section(u"\" "_s, 1).section(u' ', 0, 0);
}

} // namespace

TEST(CutTexts, WhatDoesNotFit)
{
    const QString town = u"MUNICÍPIO"_s;
    const QString button = u"Confirmação de Notificação"_s;
    EXPECT_EQ(cut<QLabel>(town, 1, 1), u"");
    EXPECT_EQ(cut<QLabel>(town, 0.9, 1), u"is");
    EXPECT_EQ(cut<QLabel>(town, 1, 0.7), u"loses");
    EXPECT_EQ(cut<QLabel>(u"MUNICIPIO"_s, 1, 0.7), u"") << "without the accent it has room";
    EXPECT_EQ(cut<QLabel>(u"Digite seu nome   "_s, 0.5, 1), u"") << "it moves";
    EXPECT_EQ(cut<QLabel>(u"ANA            |1|200,00"_s, 0.5, 1), u"");
    EXPECT_EQ(cut<QLineEdit>(town, 0.2, 1), u"");
    EXPECT_EQ(cut<QPushButton>(button, 1, 1), u"");
    EXPECT_EQ(cut<QPushButton>(button, 0.8, 1), u"is");
    EXPECT_EQ(cut<QComboBox>(u"0 - NÃO"_s, 1, 1), u"");
    EXPECT_EQ(cut<QComboBox>(u"0 - NÃO"_s, 0.5, 1), u"is");
}

TEST(CutTexts, HeadingsAndNeighbours)
{
    QWidget window;
    QLabel under(u"Data"_s, &window);
    QLineEdit over(&window);
    QTableWidget grid(1, 2, &window);
    grid.setHorizontalHeaderLabels({u"DT.NASCIMENTO"_s, u"UF"_s});
    grid.verticalHeader()->hide();
    grid.setColumnWidth(0, 40);
    window.resize(600, 300);
    under.setGeometry(10, 10, 100, 30);
    over.setGeometry(10, 35, 100, 30);
    grid.setGeometry(10, 100, 400, 150);
    window.show();
    const QString found = cutTexts(window).join(u'\n');
    EXPECT_EQ(found.count(u'\n'), 1) << found.toStdString();
    EXPECT_TRUE(found.contains(u" lies over "_s));
    EXPECT_TRUE(found.contains(u"QTableWidget: the heading \"DT.NASCIMENTO\" needs"_s));
}
