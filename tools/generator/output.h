#pragma once

#include "calendar.h"

#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A decimal number by its digits: {1250, 2} is 12.50.
struct Decimal
{
    std::int64_t digits;
    int places;
};
inline Decimal money(std::int64_t cents)
{
    return {cents, 2};
}
/// A quantity or unit value of four decimal places.
inline Decimal fine(std::int64_t tenThousandths)
{
    return {tenThousandths, 4};
}

/// One table's file: rows of fields between tabs, in the form that LOAD DATA reads with its standard escapes.
class Table
{
public:
    /// Makes folder/name.tsv; throws std::runtime_error if it cannot. columns: names between ", ".
    Table(const std::string& folder, std::string name, std::string columns);

    /// Writes one row: texts, whole numbers, Decimal, Day or std::optional of these (null) in the columns'
    /// order.
    template <class... Values>
    void row(const Values&... values)
    {
        checkWidth(sizeof...(values));
        ((field(values), line_ += '\t'), ...);
        line_.back() = '\n';
        flush(false);
    }
    /// Writes what is left; throws std::runtime_error if the file could not be written whole.
    void close() { flush(true); }

    const std::string& name() const { return name_; }
    const std::string& columns() const { return columns_; }

private:
    void field(std::string_view text);
    void field(std::int64_t number) { line_ += std::to_string(number); }
    void field(Decimal number);
    void field(Day day) { line_ += format(day, "Y-m-d"); }
    template <class Value>
    void field(const std::optional<Value>& value)
    {
        if (value)
            field(*value);
        else
            line_ += "\\N";
    }
    void checkWidth(std::size_t width) const;
    void flush(bool all);

    std::string name_;
    std::string columns_;
    std::size_t width_;
    std::ofstream file_;
    std::string line_;
};

/// The folder that a run fills: a file per table and load.sql, which loads them all into one database.
class Output
{
public:
    /// Makes the folder where it is missing.
    explicit Output(std::string folder);

    Table table(const std::string& name, const std::string& columns) { return Table(folder_, name, columns); }
    /// Closes a table's file and puts it into load.sql.
    void add(Table& table);
    /// Writes load.sql.
    void finish() const;

private:
    std::string folder_;
    std::string load_;
};
