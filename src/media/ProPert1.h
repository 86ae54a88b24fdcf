#pragma once

#include <QDialog>

#include <array>

class QFrame;
class QLabel;
class QPlainTextEdit;
class QPushButton;

// What can be told of the file in gOpenFile: a picture's format, depth, colours, size and
// resolution; a table's data and fields; a document's size.
class ProPert1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("ProPert1"); }
    explicit ProPert1(QWidget* parent = nullptr);

    std::array<QLabel*, 10> Label1{};
    std::array<QLabel*, 10> Label2{}; // from 1
    QPlainTextEdit* Text1;
    QFrame* Frame1;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

protected:
    void changeEvent(QEvent* event) override;

private:
    void Form_Load();
    void showDocument(const QString& path);
    void showDatabase();
    void showPicture(const QString& path);

    bool mFirstActivate = true;
};
