#pragma once

#include "platform/forms/theme/roles.h"

#include <QLabel>
#include <QListWidget>
#include <functional>
#include <optional>

class QPainter;

/// How one line of a text list is drawn. The line's text is not touched.
struct LineLook
{
    /// Characters from `start` on, as many as `length`, in an ink of their own.
    struct Run
    {
        qsizetype start = 0;
        qsizetype length = 0;
        Theme::Role ink = Theme::Role::Ink;
        bool halfBold = false;
    };

    QList<Run> runs;                     ///< what lies between them is muted
    qsizetype visible = -1;              ///< characters that are shown; -1 for all
    qsizetype toTheRight = -1;           ///< from here on the text ends at the right edge; -1 for nowhere
    std::optional<Theme::Role> bar;      ///< at the left edge
    std::function<void(QPainter&)> sign; ///< drawn on a square of 16 by 16, behind the bar
};

/// A list of text lines in a fixed-pitch font. Lines are addressed from 0; sorted means alphabetical order
/// without regard to case, kept at each insertion.
///
/// Where a "|" stands in a line, a rule is drawn. As it is, the text up to the first rule is in ink and the
/// rest muted. A line that is wider than the list is shown whole in a hint, a field below the other.
class ListBox : public QListWidget
{
    Q_OBJECT

public:
    explicit ListBox(QWidget* parent = nullptr);

    void setSorted(bool sorted) { sorted_ = sorted; }
    /// Several lines can be chosen by a click or the blank key each, or a single one.
    void setMultiSelect(bool multiple);
    /// Asked for each line that is drawn.
    void setLook(std::function<LineLook(const QString& line)> look);
    LineLook lookOf(const QString& line) const { return look_(line); }

    /// The part of a line that is shown.
    QString visibleText(const QString& line) const { return line.left(lookOf(line).visible); }

    /// From the edge of a line to its first character, in pixels; lines with a sign leave room for it.
    int textLeft() const;
    /// The same at the right edge.
    int rightGap() const;
    /// What a line of this text takes.
    int widthOf(const QString& text) const;
    void setSigned(bool on) { signed_ = on; }
    bool isSigned() const { return signed_; }

    /// The height of a line: a fixed part of the size of its letters, so that a list that is drawn larger or
    /// smaller shows as many lines as before.
    int lineHeight() const;
    /// The least that is seen at once, and what a layout without more room gives.
    void setMinimumLines(int lines, qsizetype characters = 0);
    QSize sizeHint() const override;

    void Clear() { clear(); }
    void AddItem(const QString& line);
    void RemoveItem(int index);
    int ListCount() const { return count(); }
    QString List(int index) const;
    /// -1 where no line is current.
    int ListIndex() const { return currentRow(); }
    bool Selected(int index) const;
    void setSelected(int index, bool selected);

protected:
    bool viewportEvent(QEvent* event) override;
    /// The focus makes the first line the current one without choosing it: the first arrow chooses it.
    void keyPressEvent(QKeyEvent* event) override;

private:
    QListWidgetItem* at(int index) const;
    int placeOf(const QString& line) const;

    std::function<LineLook(const QString& line)> look_;
    bool sorted_ = false;
    bool signed_ = false;
};

/// The headings of a text list, laid out as its lines are: a band above the list that follows its letters and
/// its scrolling.
class ListHeading : public QLabel
{
    Q_OBJECT

public:
    explicit ListHeading(QWidget* parent = nullptr);

    void setList(ListBox* list);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }
    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ListBox* list_ = nullptr;
};
