#include "organizer/OrganizerDataControl.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

QString textOf(const QWidget* control) {
    if (const auto* line = qobject_cast<const QLineEdit*>(control))
        return line->text();
    if (const auto* plain = qobject_cast<const QPlainTextEdit*>(control))
        return plain->toPlainText();
    if (const auto* rich = qobject_cast<const QTextEdit*>(control))
        return rich->toPlainText();
    if (const auto* combo = qobject_cast<const QComboBox*>(control))
        return combo->currentText();
    if (const auto* label = qobject_cast<const QLabel*>(control))
        return label->text();
    return {};
}

void setTextOf(QWidget* control, const QString& text) {
    if (auto* line = qobject_cast<QLineEdit*>(control)) {
        line->setText(text);
    } else if (auto* plain = qobject_cast<QPlainTextEdit*>(control)) {
        plain->setPlainText(text);
    } else if (auto* rich = qobject_cast<QTextEdit*>(control)) {
        rich->setPlainText(text);
    } else if (auto* combo = qobject_cast<QComboBox*>(control)) {
        const int at = combo->findText(text, Qt::MatchFixedString);
        if (at >= 0 && combo->itemText(at) == text)
            combo->setCurrentIndex(at);
        else
            combo->setCurrentIndex(-1);
        combo->setEditText(text);
    } else if (auto* label = qobject_cast<QLabel*>(control)) {
        label->setText(text);
    }
}

} // namespace

OrganizerDataControl::OrganizerDataControl(QWidget* parent) : DataNavigator(parent) {}

OrganizerDataControl::~OrganizerDataControl() = default;

AppError OrganizerDataControl::Refresh() {
    OrganizerDb::Opened db = OrganizerDb::open(DatabaseName);
    if (db.error)
        return db.error;
    const bool table = !RecordSource.trimmed().startsWith(u"SELECT"_s, Qt::CaseInsensitive);
    Recordset::Opened opened =
        Recordset::open(db.db, RecordSource, table ? Recordset::TableType : Recordset::DynasetType);
    if (opened.error)
        return opened.error;
    m_recordset = std::move(opened.recordset);
    Q_EMIT RecordsChanged();
    showRecord();
    Q_EMIT Reposition();
    return {};
}

void OrganizerDataControl::close() {
    m_recordset.reset();
}

void OrganizerDataControl::bind(QWidget* control, const QString& field) {
    m_bindings.append({control, field, QString()});
    auto changed = [this] {
        if (!m_filling)
            m_changed = true;
    };
    if (auto* line = qobject_cast<QLineEdit*>(control))
        connect(line, &QLineEdit::textEdited, this, changed);
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(control))
        connect(plain, &QPlainTextEdit::textChanged, this, changed);
    else if (auto* rich = qobject_cast<QTextEdit*>(control))
        connect(rich, &QTextEdit::textChanged, this, changed);
    else if (auto* combo = qobject_cast<QComboBox*>(control))
        connect(combo, &QComboBox::currentTextChanged, this, changed);
}

void OrganizerDataControl::showRecord() {
    if (!m_recordset)
        return;
    m_filling = true;
    const bool shown = m_recordset->hasCurrent() || m_recordset->EditMode() != Recordset::EditNone;
    for (Binding& b : m_bindings) {
        if (b.control && shown) {
            setTextOf(b.control, m_recordset->text(b.field));
            b.shown = textOf(b.control);
        }
    }
    m_filling = false;
    m_changed = false;
}

void OrganizerDataControl::writeBound() {
    // Only what changed: a field set by position stays as set while its control was not touched.
    for (const Binding& b : std::as_const(m_bindings))
        if (b.control && textOf(b.control) != b.shown)
            m_recordset->setValue(b.field, textOf(b.control));
}

AppError OrganizerDataControl::moveBy(AppError (Recordset::*move)()) {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    const AppError result = (m_recordset.get()->*move)();
    showRecord();
    Q_EMIT Reposition();
    return result;
}

AppError OrganizerDataControl::setIndex(const QString& name) {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    const AppError result = m_recordset->setIndex(name);
    if (!result)
        Q_EMIT RecordsChanged();
    return result;
}

AppError OrganizerDataControl::Seek(const QString& comparison, const QString& key) {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    const AppError result = m_recordset->Seek(comparison, key);
    showRecord();
    Q_EMIT Reposition();
    return result;
}

AppError OrganizerDataControl::MoveFirst() {
    return moveBy(&Recordset::MoveFirst);
}

AppError OrganizerDataControl::MoveLast() {
    return moveBy(&Recordset::MoveLast);
}

AppError OrganizerDataControl::MoveNext() {
    return moveBy(&Recordset::MoveNext);
}

AppError OrganizerDataControl::MovePrevious() {
    return moveBy(&Recordset::MovePrevious);
}

AppError OrganizerDataControl::AddNew() {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    const AppError result = m_recordset->AddNew();
    showRecord();
    return result;
}

AppError OrganizerDataControl::Edit() {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    // What the user typed stays in the controls: it goes into the record at the next write.
    return m_recordset->Edit();
}

AppError OrganizerDataControl::Update() {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    if (m_recordset->EditMode() != Recordset::EditNone)
        writeBound();
    const AppError result = m_recordset->Update();
    if (!result) {
        m_changed = false;
        for (Binding& b : m_bindings)
            if (b.control)
                b.shown = textOf(b.control);
    }
    return result;
}

AppError OrganizerDataControl::CancelUpdate() {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    return m_recordset->CancelUpdate();
}

AppError OrganizerDataControl::Delete() {
    if (!m_recordset)
        return OrganizerDb::error(OrganizerDb::NoCurrentRecord);
    return m_recordset->Delete();
}

void OrganizerDataControl::moveRecord(Action action) {
    if (!m_recordset)
        return;
    // A record left with changes typed into its controls is written first; when it cannot be,
    // the control stays on it and says why.
    if (m_changed && m_recordset->EditMode() != Recordset::EditNone) {
        if (const AppError failed = Update()) {
            Q_EMIT Error(failed);
            return;
        }
    }
    AppError ignored;
    switch (action) {
    case DataNavigator::MoveFirst:
        ignored = m_recordset->MoveFirst();
        break;
    case DataNavigator::MovePrevious:
        ignored = m_recordset->MovePrevious();
        break;
    case DataNavigator::MoveNext:
        ignored = m_recordset->MoveNext();
        break;
    case DataNavigator::MoveLast:
        ignored = m_recordset->MoveLast();
        break;
    }
    showRecord(); // DataNavigator::navigate says Reposition next
}
