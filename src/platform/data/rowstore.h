#pragma once

#include "platform/data/column.h"

#include <set>

namespace Odbc {
class Statement;
}

namespace ADODB {

class Criteria;

/// All rows of a statement's result, read to its end.
std::vector<Row> allRows(Odbc::Statement& statement);

/// Tells a row of a store, whatever the store reads meanwhile.
struct RowMark
{
    std::vector<WireValue> key; ///< as it was read; empty for a row that is known by its place
    qsizetype place = 0;
};

/// The rows of a client-side result, by their place in the order in which the server sent them. A place stays
/// a row's own: none is given to another row, new rows go to the end.
///
/// A store that does not hold all rows holds a run of them, and reads more as it is asked to. What it reads
/// are the rows as they stood when the first of them were read, with what was changed through the store.
class RowStore
{
public:
    enum class Side
    {
        Front,
        End
    };

    virtual ~RowStore() = default;

    /// The place of the first row held; the others follow.
    virtual qsizetype first() const { return 0; }
    virtual qsizetype count() const = 0;
    /// Null where the row was removed. Valid until the row is replaced or further ones come.
    virtual const Row* row(qsizetype place) const = 0;
    virtual void append(Row row) = 0;
    virtual void replace(qsizetype place, Row row) = 0;
    virtual void remove(qsizetype place) = 0;

    /// The number of the run held: in another one places begin anew.
    virtual int run() const { return 0; }
    /// No row lies beyond this end of the run.
    virtual bool reaches(Side) const { return true; }
    bool isWhole() const { return reaches(Side::Front) && reaches(Side::End); }

    // The functions that read leave the rows held as they were where they fail.

    /// Reads the first rows to show: around this one, found by its key, or around the gap that it left.
    /// Returns the place of the row, or of the one behind the gap; none where all rows are held.
    virtual std::optional<qsizetype> start(const Row*) { return std::nullopt; }
    /// Adds rows at this end, at least one that was not removed if there is one.
    virtual void readOn(Side) {}
    /// Reads another run where this one does not reach that end.
    virtual void readEnd(Side) {}
    virtual void readWhole() {}
    /// Lets rows go at this end of a run that has grown long, though none near the place.
    virtual void trim(Side, qsizetype) {}

    /// The place of the first row that meets the criteria, with another run where that is needed.
    virtual std::optional<qsizetype> find(const Criteria& criteria);
    virtual RowMark mark(qsizetype place) const { return {{}, place}; }
    /// The place of a marked row, likewise; none where it was removed.
    virtual std::optional<qsizetype> placeOf(const RowMark& mark);
};

/// All rows in memory.
class MemoryRows : public RowStore
{
public:
    explicit MemoryRows(std::vector<Row> rows) : rows_(std::move(rows)) {}

    qsizetype count() const override { return qsizetype(rows_.size()); }
    const Row* row(qsizetype place) const override
    {
        return removed_.contains(place) ? nullptr : &rows_[std::size_t(place)];
    }
    void append(Row row) override { rows_.push_back(std::move(row)); }
    void replace(qsizetype place, Row row) override { rows_[std::size_t(place)] = std::move(row); }
    void remove(qsizetype place) override { removed_.insert(place); }

private:
    std::vector<Row> rows_;
    std::set<qsizetype> removed_;
};

} // namespace ADODB
