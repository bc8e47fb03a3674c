#include "platform/data/recordset.h"

#include "platform/data/criteria.h"
#include "platform/data/error.h"
#include "platform/data/paging/pagequery.h"
#include "platform/data/paging/plainselect.h"

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

std::vector<WireValue> valuesOf(const Row& row, const std::vector<qsizetype>& columns)
{
    std::vector<WireValue> values;
    values.reserve(columns.size());
    for (const qsizetype column : columns)
        values.push_back(row.value(column));
    return values;
}

/// The names by which the columns are found: none for a second column of one name.
std::vector<QByteArray> fieldNames(const std::vector<Column>& columns)
{
    std::vector<QByteArray> names;
    names.reserve(columns.size());
    for (const Column& column : columns) {
        const bool isSecond = columnPlace(columns, QString::fromUtf8(column.name)) != qsizetype(names.size());
        names.push_back(isSecond ? QByteArray() : column.name);
    }
    return names;
}

} // namespace

Recordset::Recordset() = default;

Recordset::~Recordset()
{
    endView();
    tell([](RecordsetListener& listener) { listener.recordsetGone(); });
}

void Recordset::Open(const QString& sql, Connection& connection, int cursor, int lock)
{
    if (State() != 0)
        throw Error(Error::ObjectOpen, u"O resultado já está aberto."_s);
    Close();
    sql_ = sql;
    connection_ = &connection;
    lock_ = lock;
    forwardOnly_ = cursor == ForwardOnly && lock == ReadOnly && cursorLocation_ == ServerSide;
    try {
        run();
        if (session_)
            tell([](RecordsetListener& listener) { listener.rowsReset(); });
    } catch (...) {
        endView();
        Close();
        throw;
    }
}

void Recordset::Open(const Command& command, int cursor, int lock)
{
    if (!command.activeConnection())
        throw Error(Error::ObjectClosed, u"O comando não tem conexão."_s);
    Open(command.commandText(), *command.activeConnection(), cursor, lock);
}

void Recordset::Close()
{
    if (!session_)
        return;
    CancelUpdate();
    endView();
    writer_.reset();
    statement_.reset();
    session_.reset();
    rows_.reset();
    filter_.reset();
    table_.reset();
    columns_.clear();
    names_.clear();
    visible_.clear();
    position_ = blockRow_ = blockRows_ = 0;
    tell([](RecordsetListener& listener) { listener.rowsReset(); });
}

int Recordset::State() const
{
    return session_ && session_->connected() ? 1 : 0;
}

/// Runs the statement and takes its result, if it gives one, with the first row as the current one. Returns
/// the place to stand at for `around`, where the store tells it.
std::optional<qsizetype> Recordset::run(const Row* around)
{
    const auto plain = wantsPages_ && !forwardOnly_ ? plainSelect(sql_) : std::nullopt;
    auto statement = connection_->run(plain ? PageQuery::columnsOnly(sql_) : sql_);
    if (statement->columns().empty())
        return std::nullopt;
    // The members change when nothing can fail any more.
    std::vector<Column> columns = statement->columns();
    qsizetype blockRows = 0;
    std::unique_ptr<RowStore> rows;
    std::optional<qsizetype> place;
    if (forwardOnly_) {
        blockRows = statement->fetchBlock();
    } else {
        if (plain)
            rows = rowsByPages(*plain, columns);
        if (!rows)
            rows = std::make_unique<MemoryRows>(
                allRows(plain ? *(statement = connection_->run(sql_)) : *statement));
        statement.reset();
        place = rows->start(around);
        if (filter_)
            rows->readWhole();
    }
    session_ = connection_->session();
    isLost_ = false;
    names_ = fieldNames(columns);
    columns_ = std::move(columns);
    statement_ = std::move(statement);
    blockRow_ = 0;
    blockRows_ = blockRows;
    hasRows_ = blockRows > 0;
    rows_ = std::move(rows);
    if (rows_)
        showMatchingRows();
    return place;
}

void Recordset::showMatchingRows()
{
    visible_.clear();
    run_ = rows_->run();
    const qsizetype end = rows_->first() + rows_->count();
    for (qsizetype place = rows_->first(); place < end; ++place)
        if (const Row* row = rows_->row(place); row && (!filter_ || filter_->matches(*row)))
            visible_.push_back(place);
    position_ = 0;
    if (rows_->isWhole())
        endView();
}

/// The position of a place, or of the next one that is shown.
qsizetype Recordset::positionOf(qsizetype place) const
{
    return std::lower_bound(visible_.begin(), visible_.end(), place) - visible_.begin();
}

void Recordset::Requery()
{
    requireOpen();
    requireNoEdit();
    if (forwardOnly_) {
        try {
            run();
        } catch (...) {
            Close();
            throw;
        }
        return;
    }
    std::vector<qsizetype> key;
    if (const Column* first = BaseTable::firstColumn(columns_))
        key = BaseTable::keyColumns(columns_, first->tableAlias, primaryKey(*first));
    const auto current = onRow() ? std::optional(rowAt(position_)) : std::nullopt;
    const qsizetype position = position_;
    std::optional<qsizetype> place;
    try {
        place = run(current ? &*current : nullptr);
    } catch (...) {
        if (rows_->isWhole())
            endView();
        throw;
    }
    if (current)
        position_ = place ? positionOf(*place) : positionLike(*current, key, position);
    if (position_ == rowsHeld())
        position_ = 0;
    tell([](RecordsetListener& listener) { listener.rowsReset(); });
}

/// The position of the row with the same key, else this one, else the first. Where a join repeats a key, the
/// row at the same position is meant.
qsizetype Recordset::positionLike(const Row& row, const std::vector<qsizetype>& key, qsizetype position) const
{
    const std::vector<WireValue> wanted = valuesOf(row, key);
    const auto isSame = [&](qsizetype place) { return valuesOf(*rows_->row(place), key) == wanted; };
    const bool isThere = position < rowsHeld();
    if (isThere && isSame(visible_[std::size_t(position)]))
        return position;
    const auto found = std::find_if(visible_.begin(), visible_.end(), isSame);
    return found != visible_.end() ? found - visible_.begin() : isThere ? position : 0;
}

bool Recordset::onRow() const
{
    return forwardOnly_ ? blockRow_ < blockRows_ : position_ >= 0 && position_ < qsizetype(visible_.size());
}

bool Recordset::Eof() const
{
    requireOpen();
    if (adding_)
        return false;
    return forwardOnly_ ? !onRow() : position_ >= qsizetype(visible_.size());
}

bool Recordset::Bof() const
{
    requireOpen();
    if (adding_)
        return false;
    return forwardOnly_ ? !hasRows_ : position_ < 0 || visible_.empty();
}

void Recordset::MoveNext()
{
    requireOpen();
    requireNoEdit();
    if (Eof())
        requireRow();
    if (!forwardOnly_) {
        if (position_ + 1 == rowsHeld())
            readFurther(Side::End, false);
        return moveTo(position_ + 1);
    }
    if (++blockRow_ == blockRows_) {
        blockRow_ = blockRows_ = 0; // no row to read from if the fetch fails
        blockRows_ = statement_->fetchBlock();
    }
}

void Recordset::MovePrevious()
{
    requireRows();
    requireNoEdit();
    if (Bof())
        requireRow();
    if (Eof() && !rows_->reaches(Side::End))
        return MoveLast();
    if (position_ == 0)
        readFurther(Side::Front, false);
    moveTo(position_ - 1);
}

void Recordset::MoveFirst()
{
    requireRows();
    requireNoEdit();
    rows_->readEnd(Side::Front);
    stand(showReadRun(), 0);
}

void Recordset::MoveLast()
{
    requireRows();
    requireNoEdit();
    rows_->readEnd(Side::End);
    const bool isOtherRun = showReadRun();
    stand(isOtherRun, std::max<qsizetype>(rowsHeld() - 1, 0));
}

void Recordset::moveTo(qsizetype position)
{
    position_ = position;
    tell([](RecordsetListener& listener) { listener.currentRowMoved(); });
}

Field Recordset::Fields(QAnyStringView name)
{
    requireOpen();
    const QByteArray wanted = name.visit([](auto view) {
        if constexpr (std::is_same_v<decltype(view), QStringView>)
            return view.toUtf8();
        else
            return QByteArray::fromRawData(view.data(), view.size());
    });
    // A handler reads the fields of a row in the same order row after row: the search starts behind the last
    // one found.
    const auto count = qsizetype(names_.size());
    for (qsizetype step = 1; step <= count; ++step) {
        const qsizetype place = (lastField_ + step) % count;
        const QByteArray& candidate = names_[std::size_t(place)];
        if (candidate.size() == wanted.size() && !candidate.isEmpty() &&
            qstrnicmp(candidate.constData(), wanted.constData(), std::size_t(candidate.size())) == 0) {
            lastField_ = place;
            return Field(*this, place);
        }
    }
    throw Error(Error::UnknownField, u"O campo \"%1\" não existe no resultado."_s.arg(name.toString()));
}

Field Recordset::Fields(qsizetype column)
{
    requireOpen();
    if (column < 0 || column >= qsizetype(columns_.size()))
        throw Error(Error::UnknownField, u"O campo %1 não existe no resultado."_s.arg(column));
    return Field(*this, column);
}

const Row& Recordset::rowAt(qsizetype position) const
{
    return *rows_->row(visible_[std::size_t(position)]);
}

QByteArrayView Recordset::cellAt(qsizetype position, qsizetype column) const
{
    return rowAt(position).cell(column);
}

QByteArrayView Recordset::cell(qsizetype column) const
{
    requireRow();
    if (editing()) {
        if (const auto change = changes_.find(column); change != changes_.end())
            return change->second ? QByteArrayView(*change->second) : QByteArrayView();
        if (adding_)
            return {};
    }
    return forwardOnly_ ? statement_->cell(blockRow_, column) : cellAt(position_, column);
}

void Recordset::removeListener(RecordsetListener* listener)
{
    std::erase(listeners_, listener);
}

void Recordset::requireOpen() const
{
    if (State() == 0)
        throw Error(Error::ObjectClosed, u"Operação não permitida: o resultado está fechado."_s);
}

void Recordset::requireRows() const
{
    requireOpen();
    if (forwardOnly_)
        throw Error(Error::NotAllowedHere, u"Operação não permitida num resultado só de avanço."_s);
}

void Recordset::requireRow() const
{
    requireOpen();
    if (!adding_ && !onRow())
        throw Error(Error::NoCurrentRow, u"Não há registro atual: início ou fim do resultado."_s);
}

void Recordset::requireNoEdit() const
{
    if (editing())
        throw Error(Error::NotAllowedHere, u"Há alterações não salvas no registro atual."_s);
}

} // namespace ADODB
