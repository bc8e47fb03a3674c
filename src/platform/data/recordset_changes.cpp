#include "platform/data/error.h"
#include "platform/data/recordset.h"

using namespace Qt::StringLiterals;

namespace ADODB {

namespace {

void requireFound(const Odbc::Statement& statement)
{
    if (statement.affectedRows() == 0)
        throw Error(Error::RowGone, u"O registro não existe mais: foi excluído por outra estação."_s);
}

} // namespace

void Recordset::requireChangeable()
{
    requireOpen();
    if (lock_ == ReadOnly)
        throw Error(Error::NotUpdatable, u"O resultado foi aberto somente para leitura."_s);
    if (table_)
        return;
    const Column* first = BaseTable::firstColumn(columns_);
    table_.emplace(columns_, first ? primaryKey(*first) : std::vector<QByteArray>());
}

/// The connection for what changes rows: a view of the database as it stood cannot be left and come back to.
Connection& Recordset::writer()
{
    if (!view_)
        return *connection_;
    if (!writer_) {
        writer_ = std::make_unique<Connection>();
        writer_->setConnectionString(connection_->connectionString());
    }
    if (writer_->State() == 0)
        writer_->Open();
    return *writer_;
}

const std::vector<QByteArray>& Recordset::primaryKey(const Column& column) const
{
    return connection_->primaryKey(column.catalog, column.table);
}

void Recordset::set(qsizetype column, WireValue value)
{
    requireChangeable();
    requireRow();
    table_->checkWritable(column);
    changes_[column] = std::move(value);
}

void Recordset::AddNew()
{
    requireNoEdit();
    requireChangeable();
    adding_ = true;
}

void Recordset::CancelUpdate()
{
    adding_ = false;
    changes_.clear();
}

void Recordset::Update()
{
    requireOpen();
    if (adding_)
        insertRow();
    else if (!changes_.empty())
        updateRow();
}

void Recordset::insertRow()
{
    const ParameterisedStatement insertion = table_->insertion(changes_);
    Connection& server = writer();
    server.run(insertion.sql, insertion.parameters);
    WireValue number;
    if (table_->isNumbered(changes_)) {
        const auto answer = server.run(u"select last_insert_id()"_s);
        answer->fetchBlock();
        number = answer->cell(0, 0).toByteArray();
    }
    rows_->append(rowFromServer(table_->key(changes_, number), nullptr));
    CancelUpdate();
    const qsizetype place = rows_->first() + rows_->count() - 1;
    const bool isOtherRun = showReadRun();
    if (!isOtherRun) {
        visible_.push_back(place);
        tell([&](RecordsetListener& listener) { listener.rowInserted(rowsHeld() - 1); });
    }
    stand(isOtherRun, rowsHeld() - 1);
}

void Recordset::updateRow()
{
    const Row& old = rowAt(position_);
    const ParameterisedStatement update = table_->update(old, changes_);
    requireFound(*writer().run(update.sql, update.parameters));
    rows_->replace(visible_[std::size_t(position_)], rowFromServer(table_->key(old, changes_), &old));
    CancelUpdate();
    tell([&](RecordsetListener& listener) { listener.rowChanged(position_); });
}

/// The row with this key as the server has it now, with its defaults and roundings; where the server has
/// changed the key itself, the row as it was sent.
Row Recordset::rowFromServer(const std::vector<WireValue>& key, const Row* old)
{
    const ParameterisedStatement selection = table_->selection(key);
    const auto answer = writer().run(selection.sql, selection.parameters);
    const bool found = answer->fetchBlock() > 0;
    std::vector<QByteArrayView> cells(columns_.size());
    qsizetype next = 0;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const auto column = qsizetype(i);
        const auto change = changes_.find(column);
        if (found && !columns_[i].baseName.isEmpty())
            cells[i] = answer->cell(0, next++);
        else if (change != changes_.end())
            cells[i] = change->second ? QByteArrayView(*change->second) : QByteArrayView();
        else if (old)
            cells[i] = old->cell(column);
    }
    return Row(cells);
}

void Recordset::Delete()
{
    requireNoEdit();
    requireChangeable();
    requireRow();
    const ParameterisedStatement deletion = table_->deletion(rowAt(position_));
    requireFound(*writer().run(deletion.sql, deletion.parameters));
    rows_->remove(visible_[std::size_t(position_)]);
    visible_.erase(visible_.begin() + position_);
    tell([&](RecordsetListener& listener) { listener.rowRemoved(position_); });
    if (position_ == rowsHeld()) {
        // In front of the rows that may come, not behind them.
        --position_;
        if (!readFurther(Side::End, false) && visible_.empty())
            readFurther(Side::Front, false);
        ++position_;
    }
    moveTo(position_);
}

} // namespace ADODB
