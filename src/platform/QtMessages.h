#pragma once

#include "platform/Messages.h"

// The messages service over the desktop's message boxes and common dialogs.
class QtMessages final : public Messages {
public:
    void inform(const QString& text, QWidget* parent) override;
    void informTitled(const QString& title, const QString& text, QWidget* parent) override;
    bool askYesNo(const QString& text, QWidget* parent) override;
    bool askYesNoStop(const QString& text, QWidget* parent) override;
    std::optional<QString> askText(const QString& title, const QString& label,
                                   const QString& proposed, QWidget* parent) override;
    QString runOpenDialog(FileRequest& request, QWidget* parent) override;
    QString runSaveDialog(FileRequest& request, QWidget* parent) override;
    std::optional<QColor> chooseColor(const QString& title, const QColor& initial,
                                      QWidget* parent) override;
    std::optional<QFont> chooseFont(const QFont& initial, QWidget* parent) override;
    bool setUpPrinter(QWidget* parent) override;
};
