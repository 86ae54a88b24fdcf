#include "platform/FlexGrid.h"

#include "platform/Twips.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setShowGrid(false); // the delegate draws the lines in their style
    setItemDelegate(new FlexGridDelegate(this));
    setWordWrap(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    verticalHeader()->setFixedWidth(Twips::toPixels(250));
    horizontalHeader()->setHighlightSections(false);
}

int FlexGrid::Rows() const {
    return model() ? model()->rowCount() + 1 : 1;
}

int FlexGrid::Row() const {
    return currentIndex().isValid() ? currentIndex().row() + 1 : 0;
}

void FlexGrid::setRow(int row) {
    if (!model() || row < 1 || row >= Rows())
        return;
    const int column = currentIndex().isValid() ? currentIndex().column() : 0;
    setCurrentIndex(model()->index(row - 1, column));
}

int FlexGrid::Col() const {
    return currentIndex().isValid() ? currentIndex().column() : 0;
}

int FlexGrid::TopRow() const {
    return rowAt(0) + 1;
}

void FlexGrid::setTopRow(int row) {
    if (!model() || row < 1 || row >= Rows())
        return;
    scrollTo(model()->index(row - 1, std::max(0, Col())), QAbstractItemView::PositionAtTop);
}

bool FlexGrid::RowIsVisible(int row) const {
    if (row < 1 || row >= Rows())
        return false;
    const int y = rowViewportPosition(row - 1);
    return y >= 0 && y + rowHeight(row - 1) <= viewport()->height();
}

QString FlexGrid::Text() const {
    return currentIndex().data().toString();
}

void FlexGrid::setColWidth(int column, double twips) {
    setColumnWidth(column, Twips::toPixels(twips));
}

double FlexGrid::ColWidth(int column) const {
    return Twips::fromPixels(columnWidth(column));
}

void FlexGrid::setTextStyle(TextStyle style) {
    m_textStyle = style;
    viewport()->update();
}

void FlexGrid::setGridLines(GridLines lines) {
    m_gridLines = lines;
    viewport()->update();
}

void FlexGrid::setGridColor(const QColor& color) {
    m_gridColor = color;
    viewport()->update();
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (previous.isValid())
        Q_EMIT LeaveCell(previous);
    if (current.isValid())
        Q_EMIT EnterCell(current);
}

void FlexGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    QTableView::mouseDoubleClickEvent(event);
    if (indexAt(event->position().toPoint()).isValid())
        Q_EMIT DblClick();
}

FlexGridDelegate::FlexGridDelegate(FlexGrid* grid) : QStyledItemDelegate(grid), m_grid(grid) {}

void FlexGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    const QRect r = opt.rect;
    painter->save();
    const QVariant back = index.data(Qt::BackgroundRole);
    const QVariant fore = index.data(Qt::ForegroundRole);
    const bool selected = opt.state & QStyle::State_Selected;
    QColor backColor = opt.palette.color(selected ? QPalette::Highlight : QPalette::Base);
    QColor textColor = opt.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    if (back.canConvert<QColor>())
        backColor = back.value<QColor>();
    if (fore.canConvert<QColor>())
        textColor = fore.value<QColor>();
    painter->fillRect(r, backColor);

    // Raised text has a light edge above-left and a dark one below-right; inset the reverse.
    const QRect textRect = r.adjusted(3, 0, -3, 0);
    const int align = int(Qt::AlignVCenter | Qt::AlignLeft);
    const QString text =
        opt.fontMetrics.elidedText(opt.text, Qt::ElideRight, textRect.width(), Qt::TextSingleLine);
    painter->setFont(opt.font);
    if (m_grid->textStyle() != FlexGrid::TextFlat) {
        const bool raised = m_grid->textStyle() == FlexGrid::TextRaised;
        painter->setPen(QColor(raised ? Qt::white : Qt::darkGray));
        painter->drawText(textRect.translated(-1, -1), align, text);
        painter->setPen(QColor(raised ? Qt::darkGray : Qt::white));
        painter->drawText(textRect.translated(1, 1), align, text);
    }
    painter->setPen(textColor);
    painter->drawText(textRect, align, text);

    switch (m_grid->gridLines()) {
    case FlexGrid::LinesNone:
        break;
    case FlexGrid::LinesFlat:
        painter->setPen(m_grid->gridColor());
        painter->drawLine(r.topRight(), r.bottomRight());
        painter->drawLine(r.bottomLeft(), r.bottomRight());
        break;
    case FlexGrid::LinesInset:
    case FlexGrid::LinesRaised: {
        const bool inset = m_grid->gridLines() == FlexGrid::LinesInset;
        const QColor light = m_grid->gridColor().lighter(160);
        const QColor dark = m_grid->gridColor().darker(160);
        painter->setPen(inset ? light : dark);
        painter->drawLine(r.topRight(), r.bottomRight());
        painter->drawLine(r.bottomLeft(), r.bottomRight());
        painter->setPen(inset ? dark : light);
        painter->drawLine(r.topLeft(), r.topRight());
        painter->drawLine(r.topLeft(), r.bottomLeft());
        break;
    }
    }
    if (opt.state & QStyle::State_HasFocus) {
        painter->setPen(QPen(textColor, 1, Qt::DotLine));
        painter->drawRect(r.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}
