#pragma once

#include <QDialog>

#include <array>

class QLabel;
class QPushButton;

// "About Quorvane": what the program is, its version and where it keeps its settings; System
// Info starts the system information tool of the desktop.
class About1 : public QDialog {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("About1"); }

    explicit About1(QWidget* parent = nullptr);

    // Starts the first system information tool found on the PATH, or says that there is none.
    void StartSysInfo();

    std::array<QLabel*, 5> Label1{};
    QLabel* Image1;
    QPushButton* OKBtn;
    QPushButton* SysBtn;

protected:
    void changeEvent(QEvent* event) override;

private:
    bool mFirstActivate = true;
};
