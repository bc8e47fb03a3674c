#include "platform/data/recordset.h"

#include "platform/data/criteria.h"
#include "platform/data/error.h"
#include "platform/data/paging/pagedrows.h"

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

std::vector<WireValue> valuesOf(const Row& row, const std::vector<qsizetype>& columns)
{
    std::vector<WireValue> values;
    for (const qsizetype column : columns)
        values.push_back(row.value(column));
    return values;
}

/// The names by which the columns are found: none for a second column of one name.
std::vector<QByteArray> fieldNames(const std::vector<Column>& columns)
{
    std::vector<QByteArray> names;
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
    statement_.reset();
    session_.reset();
    paged_ = nullptr;
    rows_.reset();
    marks_.clear();
    filter_.reset();
    table_.reset();
    columns_.clear();
    names_.clear();
    visible_.clear();
    deleted_.clear();
    position_ = blockRow_ = blockRows_ = 0;
    tell([](RecordsetListener& listener) { listener.rowsReset(); });
}

int Recordset::State() const
{
    return session_ && session_->connected() ? 1 : 0;
}

/// Runs the statement and takes its result, if it gives one, with the first row as the current one.
void Recordset::run(const Row* around)
{
    const auto plain = wantsPages_ && !forwardOnly_ ? plainSelect(sql_) : std::nullopt;
    auto statement = connection_->run(plain ? PageQuery::columnsOnly(sql_) : sql_);
    if (statement->columns().empty())
        return;
    // The members change when nothing can fail any more.
    std::vector<Column> columns = statement->columns();
    qsizetype blockRows = 0;
    std::unique_ptr<RowStore> rows;
    std::unique_ptr<PagedRows> paged = plain ? pagedRows(*plain, columns) : nullptr;
    qsizetype place = 0;
    if (forwardOnly_) {
        blockRows = statement->fetchBlock();
    } else {
        if (paged)
            place = readAround(*paged, around);
        else
            rows = std::make_unique<MemoryRows>(
                allRows(plain ? *(statement = connection_->run(sql_)) : *statement));
        statement.reset();
    }
    session_ = connection_->session();
    names_ = fieldNames(columns);
    columns_ = std::move(columns);
    statement_ = std::move(statement);
    blockRow_ = 0;
    blockRows_ = blockRows;
    hasRows_ = blockRows > 0;
    paged_ = paged.get();
    rows_ = paged ? std::move(paged) : std::move(rows);
    marks_.clear();
    deleted_.clear();
    if (rows_) {
        showMatchingRows();
        position_ = around ? positionOf(place) : 0;
        if (position_ == rowsHeld())
            position_ = 0;
    }
}

void Recordset::showMatchingRows()
{
    visible_.clear();
    const qsizetype end = rows_->first() + rows_->count();
    for (qsizetype place = rows_->first(); place < end; ++place)
        if (!deleted_.contains(place) && (!filter_ || filter_->matches(rows_->row(place))))
            visible_.push_back(place);
    position_ = 0;
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
    if (paged_) {
        const Row current = onRow() ? rowAt(position_) : Row();
        run(onRow() ? &current : nullptr);
    } else {
        requeryInMemory();
    }
    tell([](RecordsetListener& listener) { listener.rowsReset(); });
}

void Recordset::requeryInMemory()
{
    std::vector<qsizetype> keyColumns;
    if (const Column* first = BaseTable::firstColumn(columns_))
        keyColumns = BaseTable::keyColumns(columns_, first->tableAlias, primaryKey(*first));
    const bool wasOnRow = onRow();
    const qsizetype position = position_;
    const auto key = wasOnRow ? valuesOf(rowAt(position), keyColumns) : std::vector<WireValue>();
    run();
    const auto count = qsizetype(visible_.size());
    const auto isSame = [&](qsizetype candidate) { return valuesOf(rowAt(candidate), keyColumns) == key; };
    // Where a join repeats a key, the row at the same position is meant.
    if (wasOnRow && position < count && isSame(position))
        position_ = position;
    else if (wasOnRow) {
        while (position_ < count && !isSame(position_))
            ++position_;
        if (position_ == count)
            position_ = position < count ? position : 0;
    }
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
            readOn(Side::End);
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
    if (Eof() && !atEnd())
        return MoveLast();
    if (position_ == 0)
        readOn(Side::Front);
    moveTo(position_ - 1);
}

void Recordset::MoveFirst()
{
    requireRows();
    requireNoEdit();
    if (atFront())
        return moveTo(0);
    paged_->readFirst();
    showRun(paged_->first());
}

void Recordset::MoveLast()
{
    requireRows();
    requireNoEdit();
    if (atEnd())
        return moveTo(std::max<qsizetype>(rowsHeld() - 1, 0));
    paged_->readLast();
    showRun(paged_->first() + paged_->count() - 1);
}

void Recordset::moveTo(qsizetype position)
{
    position_ = position;
    tell([](RecordsetListener& listener) { listener.currentRowMoved(); });
}

qsizetype Recordset::RecordCount() const
{
    requireOpen();
    if (!atFront() || !atEnd())
        return paged_->countOthers() + std::count_if(visible_.begin(), visible_.end(),
                                                     [&](qsizetype place) { return paged_->isOwn(place); });
    return forwardOnly_ ? -1 : rowsHeld();
}

qsizetype Recordset::AbsolutePosition() const
{
    requireRows();
    if (heldPosition() < 0)
        return 0;
    return position_ + 1 + (atFront() ? 0 : paged_->countBeforeTheRun());
}

void Recordset::setAbsolutePosition(qsizetype position)
{
    requireRows();
    requireNoEdit();
    if (position < 1 || position > RecordCount())
        throw Error(Error::InvalidArgument, u"Posição inválida: %1"_s.arg(position));
    if (!atFront())
        MoveFirst();
    position_ = 0; // near the front no row in front is let go
    while (position > rowsHeld() && readOn(Side::End)) {
    }
    moveTo(std::min(position, rowsHeld()) - 1);
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
    return rows_->row(visible_[std::size_t(position)]);
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
