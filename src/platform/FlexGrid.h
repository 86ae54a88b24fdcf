#pragma once

#include <QPointer>
#include <QStyledItemDelegate>
#include <QTableView>

class TableGridModel;

// A read-only grid of rows and columns in the manner of the platform's flex grid: a fixed
// header row (row 0) above the records, so that records are rows 1 to Rows() - 1; columns
// from 0. It tells when the current cell is entered and left, and draws its text flat,
// raised or inset, with flat, inset, raised or no grid lines.
//
// It shows a TableGridModel through a window: the model holds only the rows on screen (and
// the one cut by the bottom edge), and the vertical scroll bar runs over the whole table, its
// value the first record shown. Scrolling moves the model's window, never pixels, so the view
// and its headers keep nothing for each record of the table. The current cell is kept by its
// record, and is the view's current index only while its record is in the window.
class FlexGrid final : public QTableView {
    Q_OBJECT
public:
    enum TextStyle { TextFlat = 0, TextRaised = 1, TextInset = 2 };
    enum GridLines { LinesNone = 0, LinesFlat = 1, LinesInset = 2, LinesRaised = 3 };

    explicit FlexGrid(QWidget* parent = nullptr);

    // A TableGridModel, or none; the grid shows no other model's rows.
    void setModel(QAbstractItemModel* model) override;

    int Rows() const;
    // The current record + 1, or 0 when there is none; setRow() makes record row - 1 current
    // and brings it into view.
    int Row() const;
    void setRow(int row);
    int Col() const;
    // The first record on screen + 1; setTopRow() shows record row - 1 first, or as near the
    // top as a full last screen allows.
    int TopRow() const;
    void setTopRow(int row);
    // Whether record row - 1 is wholly on screen.
    bool RowIsVisible(int row) const;
    // The current cell's text, read from the table wherever the window is.
    QString Text() const;
    // Column widths in twips.
    void setColWidth(int column, double twips);
    double ColWidth(int column) const;

    // The rows wholly on screen.
    int rowsOnScreen() const;

    void setTextStyle(TextStyle style);
    TextStyle textStyle() const { return m_textStyle; }
    void setGridLines(GridLines lines);
    GridLines gridLines() const { return m_gridLines; }
    void setGridColor(const QColor& color);
    QColor gridColor() const { return m_gridColor; }

    // The cells in the browser's colours (the current cell inverted), bold or not; the text
    // style "F" (flat), "R" (raised) or "I" (inset) with its own grid lines, unless grid lines
    // are asked for (raised, in the text colour) or not (none).
    void applyStyle(const QColor& back, const QColor& fore, bool bold, const QString& textStyle,
                    bool gridLines);

    // Brings the record of a cell of the window into view, then its column.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

Q_SIGNALS:
    // The current cell was entered or left, by its record (from 0) and column.
    void EnterCell(int record, int column);
    void LeaveCell(int record, int column);
    void DblClick();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;

private:
    friend class FlexGridDelegate;
    int recordCount() const;
    int lastFirst() const;
    // Shows the window from record first (clamped), sized to the screen.
    void showFrom(int first);
    void bringIntoView(int record, ScrollHint hint);
    // Makes a cell current, brings it into view and tells of the move.
    void moveCurrent(int record, int column);
    // The view's current index and selection follow the current record into or out of the
    // window.
    void syncCurrent();
    void syncScrollBar();
    void onScrollValue(int value);
    void onModelReset();

    QPointer<TableGridModel> m_table;
    QList<QMetaObject::Connection> m_modelConnections;
    int m_first = 0;
    int m_record = -1;
    int m_column = 0;
    bool m_syncing = false;
    bool m_settingBar = false;
    bool m_inGeometries = false;
    TextStyle m_textStyle = TextFlat;
    GridLines m_gridLines = LinesFlat;
    QColor m_gridColor = Qt::gray;
};

// Paints the cells of a FlexGrid: background, text in its style, and the grid lines.
class FlexGridDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    explicit FlexGridDelegate(FlexGrid* grid);
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;

private:
    FlexGrid* m_grid;
};
