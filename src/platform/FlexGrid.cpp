#include "platform/FlexGrid.h"

#include "platform/Twips.h"
#include "platform/tables/TableGridModel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent) {
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setShowGrid(false); // the delegate draws the lines in their style
    setItemDelegate(new FlexGridDelegate(this));
    setWordWrap(false);
    // The grid brings the current record into view itself: the view's own scrolling knows
    // only the window.
    setAutoScroll(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
    verticalHeader()->setFixedWidth(Twips::toPixels(250));
    horizontalHeader()->setHighlightSections(false);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FlexGrid::onScrollValue);
}

void FlexGrid::setModel(QAbstractItemModel* model) {
    for (const QMetaObject::Connection& connection : std::as_const(m_modelConnections))
        disconnect(connection);
    m_modelConnections.clear();
    m_first = 0;
    m_record = -1;
    m_column = 0;
    QTableView::setModel(model);
    m_table = qobject_cast<TableGridModel*>(model);
    if (m_table) {
        m_modelConnections.append(
            connect(m_table, &QAbstractItemModel::modelReset, this, &FlexGrid::onModelReset));
        showFrom(0);
    }
}

void FlexGrid::onModelReset() {
    m_first = 0;
    m_record = -1;
    m_column = 0;
    showFrom(0);
    syncCurrent();
}

int FlexGrid::recordCount() const {
    return m_table ? m_table->recordCount() : 0;
}

int FlexGrid::rowsOnScreen() const {
    const int height = std::max(1, verticalHeader()->defaultSectionSize());
    return std::max(1, viewport()->height() / height);
}

int FlexGrid::lastFirst() const {
    return std::max(0, recordCount() - rowsOnScreen());
}

void FlexGrid::showFrom(int first) {
    if (!m_table)
        return;
    first = std::clamp(first, 0, lastFirst());
    // The rows on screen and the one cut by the bottom edge.
    const int rows = rowsOnScreen() + 1;
    if (first != m_table->firstRecord() || rows != m_table->windowRows() || first != m_first) {
        m_first = first;
        {
            // Rows leaving the window move the view's current index: not a move of the cell.
            const QScopedValueRollback syncing(m_syncing, true);
            m_table->setWindow(first, rows);
        }
        syncCurrent();
    }
    syncScrollBar();
}

void FlexGrid::syncScrollBar() {
    QScrollBar* bar = verticalScrollBar();
    const QScopedValueRollback setting(m_settingBar, true);
    bar->setRange(0, lastFirst());
    bar->setPageStep(rowsOnScreen());
    bar->setSingleStep(1);
    bar->setValue(m_first);
}

void FlexGrid::syncCurrent() {
    QItemSelectionModel* selection = selectionModel();
    if (!m_table || !selection)
        return;
    const QScopedValueRollback syncing(m_syncing, true);
    const int row = m_record - m_first;
    if (m_record >= 0 && row >= 0 && row < m_table->rowCount() && m_column < m_table->columnCount())
        selection->setCurrentIndex(m_table->index(row, m_column),
                                   QItemSelectionModel::ClearAndSelect);
    else if (selection->currentIndex().isValid() || selection->hasSelection())
        selection->clear();
}

void FlexGrid::onScrollValue(int value) {
    if (!m_settingBar)
        showFrom(value);
}

void FlexGrid::updateGeometries() {
    if (m_inGeometries || !m_table) {
        QTableView::updateGeometries();
        return;
    }
    const QScopedValueRollback inGeometries(m_inGeometries, true);
    {
        // The view lays out the window's rows from its top: its bar starts at 0, and its
        // scrolling is ignored (scrollContentsBy).
        const QScopedValueRollback setting(m_settingBar, true);
        verticalScrollBar()->setValue(0);
        QTableView::updateGeometries();
    }
    // Then the bar runs over the table, and the window fits the screen.
    showFrom(m_first);
}

void FlexGrid::scrollContentsBy(int dx, int dy) {
    Q_UNUSED(dy) // the window moves instead of the pixels
    if (dx != 0)
        QTableView::scrollContentsBy(dx, 0);
}

void FlexGrid::bringIntoView(int record, ScrollHint hint) {
    const int page = rowsOnScreen();
    int first = m_first;
    switch (hint) {
    case EnsureVisible:
        if (record < m_first)
            first = record;
        else if (record >= m_first + page)
            first = record - page + 1;
        break;
    case PositionAtTop:
        first = record;
        break;
    case PositionAtBottom:
        first = record - page + 1;
        break;
    case PositionAtCenter:
        first = record - page / 2;
        break;
    }
    showFrom(first);
}

void FlexGrid::scrollTo(const QModelIndex& index, ScrollHint hint) {
    if (!m_table || !index.isValid() || index.model() != m_table)
        return;
    const int record = m_first + index.row();
    const int column = index.column();
    bringIntoView(record, hint);
    const QModelIndex shown = m_table->index(record - m_first, column);
    if (!shown.isValid())
        return;
    {
        // The view's own scrolling brings the column into view; its row is on screen now.
        const QScopedValueRollback setting(m_settingBar, true);
        QTableView::scrollTo(shown, EnsureVisible);
    }
    syncScrollBar();
}

void FlexGrid::moveCurrent(int record, int column) {
    if (!m_table || recordCount() == 0 || m_table->columnCount() == 0)
        return;
    record = std::clamp(record, 0, recordCount() - 1);
    column = std::clamp(column, 0, m_table->columnCount() - 1);
    const int previousRecord = m_record;
    const int previousColumn = m_column;
    m_record = record;
    m_column = column;
    bringIntoView(record, EnsureVisible);
    syncCurrent();
    scrollTo(m_table->index(record - m_first, column));
    if (record == previousRecord && column == previousColumn)
        return;
    if (previousRecord >= 0)
        Q_EMIT LeaveCell(previousRecord, previousColumn);
    Q_EMIT EnterCell(record, column);
}

int FlexGrid::Rows() const {
    return recordCount() + 1;
}

int FlexGrid::Row() const {
    return m_record >= 0 ? m_record + 1 : 0;
}

void FlexGrid::setRow(int row) {
    if (!m_table || row < 1 || row >= Rows())
        return;
    moveCurrent(row - 1, m_record >= 0 ? m_column : 0);
}

int FlexGrid::Col() const {
    return m_record >= 0 ? m_column : 0;
}

int FlexGrid::TopRow() const {
    return recordCount() > 0 ? m_first + 1 : 0;
}

void FlexGrid::setTopRow(int row) {
    if (!m_table || row < 1 || row >= Rows())
        return;
    showFrom(row - 1);
}

bool FlexGrid::RowIsVisible(int row) const {
    if (!m_table || row < 1 || row >= Rows())
        return false;
    const int record = row - 1;
    return record >= m_first && record < m_first + std::min(rowsOnScreen(), m_table->rowCount());
}

QString FlexGrid::Text() const {
    if (!m_table || m_record < 0)
        return {};
    return m_table->cellText(m_record, m_column);
}

void FlexGrid::setColWidth(int column, double twips) {
    // A column of no width is not there for the eye, the keyboard or a screen reader.
    setColumnHidden(column, twips <= 0);
    if (twips > 0)
        setColumnWidth(column, Twips::toPixels(twips));
}

double FlexGrid::ColWidth(int column) const {
    return Twips::fromPixels(columnWidth(column));
}

void FlexGrid::applyStyle(const QColor& back, const QColor& fore, bool bold,
                          const QString& textStyle, bool gridLines) {
    QPalette colors = palette();
    colors.setColor(QPalette::Base, back);
    colors.setColor(QPalette::Text, fore);
    colors.setColor(QPalette::Highlight, fore);
    colors.setColor(QPalette::HighlightedText, back);
    setPalette(colors);
    QFont text = font();
    text.setBold(bold);
    setFont(text);
    if (textStyle == u"F") {
        setTextStyle(TextFlat);
        setGridLines(LinesFlat);
    } else if (textStyle == u"R") {
        setTextStyle(TextRaised);
        setGridLines(LinesRaised);
    } else if (textStyle == u"I") {
        setTextStyle(TextInset);
        setGridLines(LinesInset);
    }
    setGridColor(gridLines ? fore : back);
    setGridLines(gridLines ? LinesRaised : LinesNone);
    viewport()->update();
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
    if (m_syncing || !m_table || !current.isValid())
        return;
    // A cell of the window was made current (a click, or the view's own keys).
    const int record = m_first + current.row();
    const int column = current.column();
    if (record == m_record && column == m_column)
        return;
    const int previousRecord = m_record;
    const int previousColumn = m_column;
    m_record = record;
    m_column = column;
    if (previousRecord >= 0)
        Q_EMIT LeaveCell(previousRecord, previousColumn);
    Q_EMIT EnterCell(record, column);
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
    const int records = recordCount();
    const int columns = m_table ? m_table->columnCount() : 0;
    if (records == 0 || columns == 0) {
        QTableView::keyPressEvent(event);
        return;
    }
    if (event->matches(QKeySequence::Copy)) {
        // The current cell, even when it is scrolled out of the window.
        QGuiApplication::clipboard()->setText(Text());
        event->accept();
        return;
    }
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const int record = m_record >= 0 ? m_record : m_first;
    const int column = m_record >= 0 ? m_column : 0;
    switch (event->key()) {
    case Qt::Key_Up:
        moveCurrent(record - 1, column);
        break;
    case Qt::Key_Down:
        moveCurrent(m_record >= 0 ? record + 1 : record, column);
        break;
    case Qt::Key_PageUp:
        moveCurrent(record - rowsOnScreen(), column);
        break;
    case Qt::Key_PageDown:
        moveCurrent(record + rowsOnScreen(), column);
        break;
    case Qt::Key_Home:
        moveCurrent(control ? 0 : record, 0);
        break;
    case Qt::Key_End:
        moveCurrent(control ? records - 1 : record, columns - 1);
        break;
    case Qt::Key_Left:
        moveCurrent(record, column - 1);
        break;
    case Qt::Key_Right:
        moveCurrent(record, column + 1);
        break;
    default:
        QTableView::keyPressEvent(event);
        return;
    }
    event->accept();
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
