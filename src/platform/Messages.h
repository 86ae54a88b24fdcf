#pragma once

#include <QColor>
#include <QFont>
#include <QString>

#include <memory>
#include <optional>

class QWidget;

// The one place where the program speaks to the user in boxes and asks for files, colours,
// fonts and short texts. Windows never open message boxes or common dialogs themselves:
// they call Messages::instance(), which tests replace with a recording double.
class Messages {
public:
    // Caption of every message box and question.
    static QString caption();

    struct FileRequest {
        QString title;
        QString filterPairs; // "caption|mask|caption|mask..."
        int filterIndex = 1; // one-based, as in the pairs; the dialog leaves the chosen one
        QString folder;
        QString fileName;
        // Added to a chosen name that has no extension, as "name.ext".
        QString defaultExtension;
    };

    virtual ~Messages();

    // A box with the text and an OK button.
    virtual void inform(const QString& text, QWidget* parent = nullptr) = 0;
    // A box with the text and an OK button under a caption of its own.
    virtual void informTitled(const QString& title, const QString& text,
                              QWidget* parent = nullptr) = 0;
    // A Yes/No question; true for Yes.
    virtual bool askYesNo(const QString& text, QWidget* parent = nullptr) = 0;
    // A Yes/No question under a stop sign, with No as the default answer; true for Yes.
    virtual bool askYesNoStop(const QString& text, QWidget* parent = nullptr) = 0;
    // A one-line entry proposing a text; nothing on Cancel.
    virtual std::optional<QString> askText(const QString& title, const QString& label,
                                           const QString& proposed, QWidget* parent = nullptr) = 0;
    // The common open and save dialogs; an empty path on Cancel. A name typed without an
    // extension gets the request's default extension: always when saving, and when opening if
    // the file is found only with it.
    QString openFileName(FileRequest& request, QWidget* parent = nullptr);
    QString saveFileName(FileRequest& request, QWidget* parent = nullptr);
    // The common colour and font dialogs; nothing on Cancel.
    virtual std::optional<QColor> chooseColor(const QString& title, const QColor& initial,
                                              QWidget* parent = nullptr) = 0;
    virtual std::optional<QFont> chooseFont(const QFont& initial, QWidget* parent = nullptr) = 0;
    // The common printer dialog for the setup of the program's printer alone; false on Cancel.
    virtual bool setUpPrinter(QWidget* parent = nullptr) = 0;

    // The service in use; the desktop's dialogs unless another was installed.
    static Messages& instance();
    // Puts a service in place and returns the one it replaces (empty for the default).
    static std::unique_ptr<Messages> install(std::unique_ptr<Messages> service);

protected:
    // The dialogs themselves; the name as chosen, or empty on Cancel.
    virtual QString runOpenDialog(FileRequest& request, QWidget* parent) = 0;
    virtual QString runSaveDialog(FileRequest& request, QWidget* parent) = 0;
};
