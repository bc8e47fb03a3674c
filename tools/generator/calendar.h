#pragma once

#include <array>
#include <chrono>
#include <string>

using Day = std::chrono::sys_days;

/// A second of a day, counted from midnight; seconds beyond the day run on into the next ones.
struct Moment
{
    Day day;
    int second = 0;
};

struct Holiday
{
    unsigned day;
    unsigned month;
    const char* name;
};

/// The national holidays of Brazil that have a fixed date.
extern const std::array<Holiday, 9> holidays;
/// Month names in capitals, January first.
extern const std::array<const char*, 12> monthNames;

/// Reads yyyy-mm-dd; throws std::invalid_argument.
Day readDay(const std::string& text);
Day plusMonths(Day day, int months);
/// 1 for Sunday to 7 for Saturday.
int weekday(Day day);
bool isHoliday(Day day);

/// A pattern of the letters below and other characters, which stand for themselves: Y year of four digits, y
/// of two, m month, d day, H hour, M minute, S second, the last five of two digits.
std::string format(Moment moment, const char* pattern);
std::string format(Day day, const char* pattern);
