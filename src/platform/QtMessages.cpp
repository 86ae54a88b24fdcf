#include "platform/QtMessages.h"

#include "platform/DialogFilter.h"
#include "platform/PrinterChoice.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>

namespace {

QString runFileDialog(Messages::FileRequest& request, QWidget* parent,
                      QFileDialog::AcceptMode mode) {
    QFileDialog dialog(parent, request.title, request.folder);
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                       : QFileDialog::AnyFile);
    const QStringList filters = DialogFilter::toNameFilters(request.filterPairs);
    if (!filters.isEmpty()) {
        dialog.setNameFilters(filters);
        const int index = request.filterIndex - 1;
        if (index >= 0 && index < filters.size())
            dialog.selectNameFilter(filters[index]);
    }
    if (!request.fileName.isEmpty())
        dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    const qsizetype chosen = filters.indexOf(dialog.selectedNameFilter());
    if (chosen >= 0)
        request.filterIndex = static_cast<int>(chosen) + 1;
    return dialog.selectedFiles().constFirst();
}

} // namespace

void QtMessages::inform(const QString& text, QWidget* parent) {
    informTitled(caption(), text, parent);
}

void QtMessages::informTitled(const QString& title, const QString& text, QWidget* parent) {
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Ok, parent);
    box.exec();
}

bool QtMessages::askYesNo(const QString& text, QWidget* parent) {
    QMessageBox box(QMessageBox::Question, caption(), text, QMessageBox::Yes | QMessageBox::No,
                    parent);
    box.setDefaultButton(QMessageBox::Yes);
    return box.exec() == QMessageBox::Yes;
}

bool QtMessages::askYesNoStop(const QString& text, QWidget* parent) {
    QMessageBox box(QMessageBox::Critical, caption(), text, QMessageBox::Yes | QMessageBox::No,
                    parent);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

std::optional<QString> QtMessages::askText(const QString& title, const QString& label,
                                           const QString& proposed, QWidget* parent) {
    bool ok = false;
    const QString text =
        QInputDialog::getText(parent, title, label, QLineEdit::Normal, proposed, &ok);
    if (!ok)
        return std::nullopt;
    return text;
}

QString QtMessages::runOpenDialog(FileRequest& request, QWidget* parent) {
    return runFileDialog(request, parent, QFileDialog::AcceptOpen);
}

QString QtMessages::runSaveDialog(FileRequest& request, QWidget* parent) {
    return runFileDialog(request, parent, QFileDialog::AcceptSave);
}

std::optional<QColor> QtMessages::chooseColor(const QString& title, const QColor& initial,
                                              QWidget* parent) {
    const QColor color = QColorDialog::getColor(initial, parent, title);
    if (!color.isValid())
        return std::nullopt;
    return color;
}

std::optional<QFont> QtMessages::chooseFont(const QFont& initial, QWidget* parent) {
    bool ok = false;
    const QFont font = QFontDialog::getFont(&ok, initial, parent);
    if (!ok)
        return std::nullopt;
    return font;
}

bool QtMessages::setUpPrinter(QWidget* parent) {
    QPrintDialog dialog(&PrinterChoice::printer(), parent);
    dialog.setWindowTitle(QPrintDialog::tr("Printer Setup"));
    // The setup chooses the printer and its settings; what to print is asked by each job.
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, false);
    return dialog.exec() == QDialog::Accepted;
}
