#pragma once

#include "platform/data/recordset.h"

#include <QAbstractTableModel>

/// A column of a grid.
struct GridColumn
{
    QString field;
    QString caption;
    /// Of the grid's inner width.
    double percent = 0;
    /// As Format takes it; empty for the field's own text form.
    QString mask = {};
    /// Empty: numbers to the right, all else to the left.
    Qt::Alignment alignment = {};
    /// Of a column of codes: each code with its word, as "0 - CLINICA", in the place of the code alone.
    QStringList words = {};
};

/// Shows a recordset's rows to a view, straight from where the recordset keeps them.
class RecordsetModel : public QAbstractTableModel, private ADODB::RecordsetListener
{
    Q_OBJECT

public:
    explicit RecordsetModel(QObject* parent);
    ~RecordsetModel() override;

    /// Null for none. The recordset may be closed, and may go before the model does.
    void setRecordset(ADODB::Recordset* recordset);
    ADODB::Recordset* recordset() const { return recordset_; }
    /// None: all fields of the result, under their own names. A field that an open result does not have is
    /// ADODB::Error 3265, here or when the result is opened.
    void setColumns(const std::vector<GridColumn>& columns);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

Q_SIGNALS:
    /// The recordset has another current row, or the model was reset. `isChosen` where a row was gone to, by
    /// the user or by the program, and does not just happen to be the current one of other rows.
    void currentChanged(bool isChosen);

private:
    void rowsReset() override { reset(false); }
    void rowsResetAndMoved() override { reset(true); }
    void currentRowMoved() override { Q_EMIT currentChanged(true); }
    void rowInserted(qsizetype position) override;
    void rowRemoved(qsizetype position) override;
    void rowChanged(qsizetype position) override;
    void rowsRead(qsizetype position, qsizetype count) override;
    void rowsDropped(qsizetype position, qsizetype count) override;
    void recordsetGone() override;

    void reset(bool isChosen);
    QString text(const ADODB::Column& column, QByteArrayView cell, const GridColumn& shown) const;
    Qt::Alignment alignment(int column) const;

    ADODB::Recordset* recordset_ = nullptr;
    std::vector<GridColumn> given_;
    std::vector<GridColumn> shown_;
    std::vector<qsizetype> places_; ///< of the shown columns in the result
    /// The rows that the view knows of: the recordset tells of a change when it has happened, a view wants to
    /// be told before and after.
    int rows_ = 0;
};
