#pragma once

#include <QStyledItemDelegate>
#include <QTableView>

// A read-only grid of rows and columns in the manner of the platform's flex grid: a fixed
// header row (row 0) above the records, so that records are rows 1 to Rows() - 1; columns
// from 0. It tells when the current cell is entered and left, and draws its text flat,
// raised or inset, with flat, inset, raised or no grid lines.
class FlexGrid final : public QTableView {
    Q_OBJECT
public:
    enum TextStyle { TextFlat = 0, TextRaised = 1, TextInset = 2 };
    enum GridLines { LinesNone = 0, LinesFlat = 1, LinesInset = 2, LinesRaised = 3 };

    explicit FlexGrid(QWidget* parent = nullptr);

    int Rows() const;
    int Row() const;
    void setRow(int row);
    int Col() const;
    int TopRow() const;
    void setTopRow(int row);
    bool RowIsVisible(int row) const;
    QString Text() const;
    // Column widths in twips.
    void setColWidth(int column, double twips);
    double ColWidth(int column) const;

    void setTextStyle(TextStyle style);
    TextStyle textStyle() const { return m_textStyle; }
    void setGridLines(GridLines lines);
    GridLines gridLines() const { return m_gridLines; }
    void setGridColor(const QColor& color);
    QColor gridColor() const { return m_gridColor; }

Q_SIGNALS:
    void EnterCell(const QModelIndex& cell);
    void LeaveCell(const QModelIndex& cell);
    void DblClick();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    friend class FlexGridDelegate;
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
