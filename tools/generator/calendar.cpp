#include "calendar.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

using namespace std::chrono;

const std::array<Holiday, 9> holidays = {{{1, 1, "CONFRATERNIZAÇÃO UNIVERSAL"},
                                          {21, 4, "TIRADENTES"},
                                          {1, 5, "DIA DO TRABALHO"},
                                          {7, 9, "INDEPENDÊNCIA DO BRASIL"},
                                          {12, 10, "NOSSA SENHORA APARECIDA"},
                                          {2, 11, "FINADOS"},
                                          {15, 11, "PROCLAMAÇÃO DA REPÚBLICA"},
                                          {20, 11, "DIA DA CONSCIÊNCIA NEGRA"},
                                          {25, 12, "NATAL"}}};

const std::array<const char*, 12> monthNames = {"JANEIRO",  "FEVEREIRO", "MARÇO",    "ABRIL",
                                                "MAIO",     "JUNHO",     "JULHO",    "AGOSTO",
                                                "SETEMBRO", "OUTUBRO",   "NOVEMBRO", "DEZEMBRO"};

Day readDay(const std::string& text)
{
    // 0, which is no day of the calendar, for what is not made of digits alone.
    const auto number = [&](std::size_t start, std::size_t size) {
        unsigned value = 0;
        const char* end = text.data() + start + size;
        return std::from_chars(text.data() + start, end, value).ptr == end ? value : 0;
    };
    year_month_day date{};
    if (text.size() == 10 && text[4] == '-' && text[7] == '-')
        date = year{static_cast<int>(number(0, 4))} / month{number(5, 2)} / day{number(8, 2)};
    if (date.year() < year{1990} || !date.ok())
        throw std::invalid_argument("--today takes a date as yyyy-mm-dd");
    return date;
}

Day plusMonths(Day day, int count)
{
    const year_month_day date = year_month_day(day) + months(count);
    return date.ok() ? Day(date) : Day(date.year() / date.month() / last);
}

int weekday(Day day)
{
    return static_cast<int>(std::chrono::weekday(day).c_encoding()) + 1;
}

bool isHoliday(Day day)
{
    const year_month_day date = day;
    return std::any_of(holidays.begin(), holidays.end(), [&](const Holiday& holiday) {
        return date.day() == std::chrono::day{holiday.day} && date.month() == month{holiday.month};
    });
}

std::string format(Moment moment, const char* pattern)
{
    const int second = moment.second % 86400;
    const year_month_day date = moment.day + days(moment.second / 86400);
    std::string text;
    const auto two = [&](int value) {
        text += static_cast<char>('0' + value / 10 % 10);
        text += static_cast<char>('0' + value % 10);
    };
    for (const char* c = pattern; *c != '\0'; ++c) {
        switch (*c) {
        case 'Y':
            two(int(date.year()) / 100);
            [[fallthrough]];
        case 'y':
            two(int(date.year()) % 100);
            break;
        case 'm':
            two(static_cast<int>(unsigned(date.month())));
            break;
        case 'd':
            two(static_cast<int>(unsigned(date.day())));
            break;
        case 'H':
            two(second / 3600);
            break;
        case 'M':
            two(second / 60 % 60);
            break;
        case 'S':
            two(second % 60);
            break;
        default:
            text += *c;
        }
    }
    return text;
}

std::string format(Day day, const char* pattern)
{
    return format(Moment{day, 0}, pattern);
}
