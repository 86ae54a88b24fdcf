#pragma once

#include <QDialog>

#include <array>

class QLabel;
class QLineEdit;
class QPushButton;

// Renames gOpenFile: an ordinary file by copy and delete, a database table by renaming all its
// files.
class Rename1 : public QDialog {
    Q_OBJECT
public:
    explicit Rename1(QWidget* parent = nullptr);

    void OKBtn_Click();
    QLineEdit* newNameBox() const { return Text1[1]; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::array<QLineEdit*, 2> Text1{};
    QLabel* Label1;
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
};
