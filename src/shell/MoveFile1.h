#pragma once

#include <QDialog>

class QLabel;
class QPushButton;

// Confirms a move from gMoveSource to gMoveTarget and carries it out; a database table moves with
// all its files or not at all.
class MoveFile1 : public QDialog {
    Q_OBJECT
public:
    explicit MoveFile1(QWidget* parent = nullptr);

    void OKBtn_Click();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QLabel* m_from;
    QLabel* m_to;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
};
