#include "output.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

Table::Table(const std::string& folder, std::string name, std::string columns)
    : name_(std::move(name)),
      columns_(std::move(columns)),
      width_(static_cast<std::size_t>(std::count(columns_.begin(), columns_.end(), ',')) + 1),
      file_(folder + "/" + name_ + ".tsv", std::ios::binary)
{
    if (!file_)
        throw std::runtime_error("cannot write " + folder + "/" + name_ + ".tsv");
}

void Table::checkWidth(std::size_t width) const
{
    if (width != width_)
        throw std::logic_error("a row of " + name_ + " has " + std::to_string(width) + " fields instead of " +
                               std::to_string(width_));
}

void Table::field(std::string_view text)
{
    for (const char c : text) {
        if (c == '\t' || c == '\n' || c == '\\')
            line_ += '\\';
        line_ += c;
    }
}

void Table::field(Decimal number)
{
    const std::string digits = std::to_string(std::abs(number.digits));
    const auto places = static_cast<std::size_t>(number.places);
    const std::string padded =
        digits.size() > places ? digits : std::string(places + 1 - digits.size(), '0') + digits;
    if (number.digits < 0)
        line_ += '-';
    line_.append(padded, 0, padded.size() - places).append(".").append(padded, padded.size() - places);
}

void Table::flush(bool all)
{
    if (!all && line_.size() < 1'000'000)
        return;
    file_.write(line_.data(), static_cast<std::streamsize>(line_.size()));
    line_.clear();
    if (all)
        file_.close();
    if (!file_)
        throw std::runtime_error("the file of " + name_ + " could not be written whole");
}

Output::Output(std::string folder)
    : folder_(std::move(folder)),
      // In an empty table the server then builds its indexes at the end, in one go.
      load_("SET NAMES utf8mb4;\nSET SESSION unique_checks = 0, foreign_key_checks = 0, autocommit = 0;\n")
{
    std::filesystem::create_directories(folder_);
}

void Output::add(Table& table)
{
    table.close();
    load_ += "LOAD DATA LOCAL INFILE '" + table.name() + ".tsv' INTO TABLE " + table.name() +
             " CHARACTER SET utf8mb4\n    FIELDS TERMINATED BY '\\t' ESCAPED BY '\\\\' LINES TERMINATED BY "
             "'\\n'\n    (" +
             table.columns() + ");\n";
}

void Output::finish() const
{
    std::ofstream file(folder_ + "/load.sql", std::ios::binary);
    file << load_ << "COMMIT;\n";
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + folder_ + "/load.sql");
}
