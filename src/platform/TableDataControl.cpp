#include "platform/TableDataControl.h"

#include "platform/tables/TableRecordset.h"

TableDataControl::TableDataControl(QWidget* parent) : DataNavigator(parent) {}

TableDataControl::~TableDataControl() = default;

AppError TableDataControl::Refresh() {
    TableRecordset::Opened opened = TableRecordset::open(Connect, DatabaseName, RecordSource);
    if (opened.error)
        return opened.error; // what was shown stays
    m_recordset = std::move(opened.recordset);
    Q_EMIT recordsetChanged();
    return {};
}

void TableDataControl::closeRecordset() {
    if (!m_recordset)
        return;
    m_recordset.reset();
    Q_EMIT recordsetChanged();
}

void TableDataControl::moveRecord(Action action) {
    if (!m_recordset)
        return;
    switch (action) {
    case MoveFirst:
        m_recordset->MoveFirst();
        break;
    case MovePrevious:
        m_recordset->MovePrevious();
        if (m_recordset->isBOF())
            m_recordset->MoveFirst();
        break;
    case MoveNext:
        m_recordset->MoveNext();
        if (m_recordset->isEOF())
            m_recordset->MoveLast();
        break;
    case MoveLast:
        m_recordset->MoveLast();
        break;
    }
}
