#include "platform/forms/recordsetmodel.h"

#include "platform/data/criteria.h"
#include "platform/data/error.h"
#include "platform/values/format.h"

using namespace Qt::StringLiterals;

RecordsetModel::RecordsetModel(QObject* parent) : QAbstractTableModel(parent) {}

RecordsetModel::~RecordsetModel()
{
    if (recordset_)
        recordset_->removeListener(this);
}

void RecordsetModel::setRecordset(ADODB::Recordset* recordset)
{
    if (recordset_)
        recordset_->removeListener(this);
    recordset_ = recordset;
    if (recordset_)
        recordset_->addListener(this);
    rowsReset();
}

void RecordsetModel::setColumns(const std::vector<GridColumn>& columns)
{
    given_ = columns;
    rowsReset();
}

int RecordsetModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

int RecordsetModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(shown_.size());
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::TextAlignmentRole)
        return int(alignment(index.column()));
    if (role != Qt::DisplayRole)
        return {};
    const auto column = std::size_t(index.column());
    const qsizetype place = places_[column];
    const QByteArrayView cell = recordset_->cellAt(index.row(), place);
    return cell.isNull() ? QString() : text(recordset_->columns()[std::size_t(place)], cell, shown_[column]);
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section >= columnCount())
        return {};
    if (role == Qt::TextAlignmentRole)
        return int(alignment(section));
    return role == Qt::DisplayRole ? shown_[std::size_t(section)].caption : QVariant();
}

QString RecordsetModel::text(const ADODB::Column& column, QByteArrayView cell, const GridColumn& shown) const
{
    const QString& mask = shown.mask;
    if (mask.isEmpty()) {
        QString plain = ADODB::Cell::text(column, cell);
        for (const QString& word : shown.words)
            if (word.section(QLatin1Char(' '), 0, 0) == plain)
                return word;
        return plain;
    }
    if (isNumber(column.kind))
        return Format(ADODB::Cell::number(column, cell), mask);
    if (isDate(column.kind))
        return Format(ADODB::Cell::date(column, cell), mask);
    return Format(ADODB::Cell::text(column, cell), mask);
}

Qt::Alignment RecordsetModel::alignment(int column) const
{
    const GridColumn& shown = shown_[std::size_t(column)];
    if (shown.alignment)
        return shown.alignment | Qt::AlignVCenter;
    if (places_.empty() || !shown.words.isEmpty())
        return Qt::AlignLeft | Qt::AlignVCenter;
    const ADODB::ColumnKind kind = recordset_->columns()[std::size_t(places_[std::size_t(column)])].kind;
    return (isNumber(kind) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

void RecordsetModel::reset(bool isChosen)
{
    beginResetModel();
    rows_ = 0;
    places_.clear();
    shown_ = given_;
    const bool isOpen = recordset_ && recordset_->State() == 1;
    if (isOpen && given_.empty())
        for (const ADODB::Column& column : recordset_->columns())
            shown_.push_back({QString::fromUtf8(column.name), QString::fromUtf8(column.name)});
    QString unknown;
    for (std::size_t i = 0; isOpen && i < shown_.size() && unknown.isNull(); ++i) {
        // A second column of one name is shown by itself where all are.
        places_.push_back(given_.empty() ? qsizetype(i)
                                         : columnPlace(recordset_->columns(), shown_[i].field));
        if (places_.back() < 0)
            unknown = shown_[i].field;
    }
    if (!unknown.isNull())
        places_.clear();
    else if (isOpen)
        rows_ = int(recordset_->rowsHeld());
    endResetModel();
    if (!unknown.isNull())
        throw ADODB::Error(ADODB::Error::UnknownField,
                           u"O campo \"%1\" da grade não existe no resultado."_s.arg(unknown));
    Q_EMIT currentChanged(isChosen);
}

void RecordsetModel::rowInserted(qsizetype position)
{
    rowsRead(position, 1);
}

void RecordsetModel::rowRemoved(qsizetype position)
{
    rowsDropped(position, 1);
}

void RecordsetModel::rowsRead(qsizetype position, qsizetype count)
{
    beginInsertRows({}, int(position), int(position + count) - 1);
    rows_ += int(count);
    endInsertRows();
}

void RecordsetModel::rowsDropped(qsizetype position, qsizetype count)
{
    beginRemoveRows({}, int(position), int(position + count) - 1);
    rows_ -= int(count);
    endRemoveRows();
}

void RecordsetModel::rowChanged(qsizetype position)
{
    Q_EMIT dataChanged(index(int(position), 0), index(int(position), columnCount() - 1));
}

void RecordsetModel::recordsetGone()
{
    recordset_ = nullptr;
    rowsReset();
}
