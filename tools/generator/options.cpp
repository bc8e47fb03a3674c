#include "options.h"

#include <charconv>
#include <map>
#include <stdexcept>

namespace {

std::int64_t number(const std::string& name, const std::string& text, std::int64_t least, std::int64_t most)
{
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || value < least || value > most)
        throw std::invalid_argument(name + " takes a number from " + std::to_string(least) + " to " +
                                    std::to_string(most));
    return value;
}

} // namespace

Options readOptions(const std::vector<std::string>& arguments)
{
    std::map<std::string, std::string> given = {
        {"--tenant", ""}, {"--out", ""},      {"--today", ""},        {"--seed", "1"},  {"--first-code", "1"},
        {"--scale", "1"}, {"--patients", ""}, {"--appointments", ""}, {"--visits", ""},
    };
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        const auto option = given.find(arguments[i]);
        if (option == given.end() || i + 1 == arguments.size())
            throw std::invalid_argument("unknown or incomplete option " + arguments[i]);
        option->second = arguments[i + 1];
    }
    const auto count = [&](const char* name, std::int64_t standard, std::int64_t least) {
        return given[name].empty() ? standard : number(name, given[name], least, 50'000'000);
    };

    Options options;
    options.tenant = given["--tenant"];
    options.folder = given["--out"];
    // 20 is the width of the column. A quote would have to be escaped in every statement of the program.
    if (options.tenant.empty() || options.tenant.size() > 20 ||
        options.tenant.find('\'') != std::string::npos)
        throw std::invalid_argument("--tenant takes 1 to 20 characters and no quote");
    if (options.folder.empty())
        throw std::invalid_argument("--out takes the folder to write to");
    options.today = readDay(given["--today"]);
    options.seed = static_cast<std::uint64_t>(number("--seed", given["--seed"], 0, 1'000'000'000));
    options.firstCode = number("--first-code", given["--first-code"], 1, 2'000'000'000);
    options.scale = number("--scale", given["--scale"], 1, 10'000);
    // More than the smallest staff can see in a day: a patient has one appointment a day.
    options.patients = count("--patients", 300 * options.scale, 150);
    options.appointments = count("--appointments", 1500 * options.scale, 0);
    options.visits = count("--visits", 600 * options.scale, 0);
    return options;
}
