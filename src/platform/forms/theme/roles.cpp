#include "platform/forms/theme/roles.h"

#include <QRegularExpression>
#include <QString>
#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace Theme {

namespace {

struct Colour
{
    const char* name;
    QRgb value;
};

/// In the order of the roles.
constexpr std::array colours{
    Colour{"Ground", 0xffeef2f5},    Colour{"Card", 0xffffffff},        Colour{"Band", 0xfff3f7f9},
    Colour{"Off", 0xffe6ecf0},       Colour{"Hover", 0xffe4f1f3},       Colour{"Selection", 0xffcfe6ea},
    Colour{"Notice", 0xfffdeed2},    Colour{"Alarm", 0xfffbeceb},       Colour{"Ink", 0xff16242e},
    Colour{"MutedInk", 0xff465560},  Colour{"OffInk", 0xff53616c},      Colour{"AccentInk", 0xff0f6174},
    Colour{"DangerInk", 0xff9d231c}, Colour{"FreeInk", 0xff1f6a3d},     Colour{"NoticeInk", 0xff734600},
    Colour{"Outline", 0xff6c7d88},   Colour{"Accent", 0xff0f6b7c},      Colour{"Free", 0xff2f7d4b},
    Colour{"Booked", 0xff0f6b7c},    Colour{"Notified", 0xffa86300},    Colour{"Closed", 0xff66747f},
    Colour{"Blocked", 0xffa3241d},   Colour{"AccentHover", 0xff0c5866}, Colour{"AccentPressed", 0xff094550},
    Colour{"Night", 0xff16242e},     Colour{"Paper", 0xffffffff},       Colour{"Hairline", 0xffdce4e9},
    Colour{"FreePale", 0xffbfe0cb},  Colour{"AccentRing", 0xffffdc94},
};

constexpr std::array surfaceRoles{Role::Ground, Role::Card,      Role::Band,   Role::Off,
                                  Role::Hover,  Role::Selection, Role::Notice, Role::Alarm};
constexpr std::array inkRoles{Role::Ink,       Role::MutedInk, Role::OffInk,   Role::AccentInk,
                              Role::DangerInk, Role::FreeInk,  Role::NoticeInk};
constexpr std::array markRoles{Role::Outline,  Role::Accent, Role::Free,   Role::Booked,
                               Role::Notified, Role::Closed, Role::Blocked};
constexpr std::array solidRoles{Role::Accent, Role::AccentHover, Role::AccentPressed, Role::Night};

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

} // namespace

QColor colour(Role role)
{
    return colours[static_cast<std::size_t>(role)].value;
}

std::span<const Role> surfaces()
{
    return surfaceRoles;
}

std::span<const Role> inks()
{
    return inkRoles;
}

std::span<const Role> marks()
{
    return markRoles;
}

std::span<const Role> solids()
{
    return solidRoles;
}

double contrast(const QColor& one, const QColor& other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QString withColours(QString text)
{
    for (const Colour& colour : colours)
        text.replace(QRegularExpression(u"@%1\\b"_s.arg(QLatin1String(colour.name))),
                     QColor(colour.value).name());
    return text;
}

} // namespace Theme
