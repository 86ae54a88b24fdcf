#pragma once

#include <QDialog>

class OrganizerDataControl;
class QLabel;
class QLineEdit;
class QPushButton;

// The face and the core of the organizer's two finds: a file name or a search word, looked up
// at or after the text in the order of its index, on the data control of another window.
class GrpFind : public QDialog {
    Q_OBJECT
public:
    // Opens FileTable under the target's data control and seeks by file name ("1") or by
    // search word ("2"); false, after saying why, when that could not be done.
    bool SeekFileRow(const QString& selector);
    void OKBtn_Click();

    QLineEdit* Text1[2];
    QLabel* Label1[3];
    QPushButton* OKBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

protected:
    GrpFind(const QString& name, const QString& title, QWidget* parent);
    void changeEvent(QEvent* event) override;
    // The data control that the seeks move; none when its window is gone.
    virtual OrganizerDataControl* target() const = 0;
    // Before the seeks, and after them with the last seek's result.
    virtual void beforeSeeks() {}
    virtual void afterSeeks(bool /*found*/) {}

private:
    bool mFirstActivate = true;
};

// The find of the file editor: its navigator moves to the match, and the find stays open for
// another one.
class GrpFind2 final : public GrpFind {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("GrpFind2"); }
    explicit GrpFind2(QWidget* parent = nullptr);

protected:
    OrganizerDataControl* target() const override;
};

// The find of the group browser: the browser turns to the file grid over all files, on the
// match, and the find closes.
class GrpFind1 final : public GrpFind {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("GrpFind1"); }
    explicit GrpFind1(QWidget* parent = nullptr);

protected:
    OrganizerDataControl* target() const override;
    void beforeSeeks() override;
    void afterSeeks(bool found) override;
};
