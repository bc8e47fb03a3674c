#pragma once

#include "platform/forms/recordsetmodel.h"

#include <QTableView>

class Adodc;

/// A read-only grid over a recordset that is held in memory. The grid's current row is the recordset's:
/// whoever moves one moves the other. Of a paged recordset it has the rows held, and reads on when the view
/// comes near their ends.
///
/// The current row is drawn as chosen once it was gone to, by the user or by the program, or while the grid
/// has the focus. As the rows are opened it looks like the others, since nobody has chosen it.
///
/// A cell whose text is cut shows it whole in a hint.
class DataGrid : public QTableView
{
    Q_OBJECT
    /// The screen acts on the current row whoever has the focus: it is drawn as chosen always.
    Q_PROPERTY(bool choice MEMBER choice_)

public:
    explicit DataGrid(QWidget* parent = nullptr);

    void setDataSource(Adodc* source);
    void setDataSource(ADODB::Recordset* source);
    /// See RecordsetModel. The widths follow the grid's.
    void setColumns(const std::vector<GridColumn>& columns);

    /// Draws the current row like the others until it is gone to again; it stays the recordset's row.
    void rest();
    bool showsChoice() const;

    /// Letters typed on the grid are not a search.
    void keyboardSearch(const QString&) override {}

Q_SIGNALS:
    /// The current row has become another one, or none, or its values have changed: by the user or by the
    /// program. The recordset stands on the row already, and may be at its end. Emitted once per change; a
    /// requery or a filter that leaves a row of the same values current is none. The end of the recordset's
    /// life is not told.
    void rowChanged();

protected:
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void reset() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
                     const QList<int>& roles) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// A row as it was told of.
    struct ToldRow
    {
        qsizetype position = 0; ///< 0 for no row
        ADODB::Row cells;

        bool operator==(const ToldRow&) const = default;
    };

    void showCurrentRow(bool isChosen);
    void tellCurrentRow();
    void readNear();
    void shiftRows(int from, int count);
    void fitColumns();
    void fitLetters();

    RecordsetModel* model_;
    std::vector<GridColumn> columns_;
    ToldRow told_;
    bool choice_ = false;
    bool chosen_ = false;
    bool wasReset_ = false; ///< since the row was told: positions mean nothing
    bool reading_ = false;  ///< further rows, or not to read any now
    bool removing_ = false; ///< a row that the recordset has left already
};
