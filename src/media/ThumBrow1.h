#pragma once

#include <QWidget>

class QFrame;
class QImage;
class QLabel;
class QListWidget;
class QPushButton;
class ThumbnailGenerator;

// Thumbnails of every picture in the folder of the main window's file list, arriving one by
// one; a click shows the picture in the document frame.
class ThumBrow1 : public QWidget {
    Q_OBJECT
public:
    static QString WindowName() { return QStringLiteral("ThumBrow1"); }
    explicit ThumBrow1(QWidget* parent = nullptr);
    ~ThumBrow1() override;

    void OKBtn_Click();
    void StopBtn_Click();
    void CancelBtn_Click();
    void ImagList1_Click(int index);

    bool StopRequested = false;
    bool CloseRequested = false;
    bool Generating = false;
    bool Busy = false;
    int mCount = 0;

    ThumbnailGenerator* Thumb1;
    QListWidget* ImagList1;
    QListWidget* List1; // the full path of each thumbnail, hidden
    QFrame* Frame1;
    QLabel* Label1;
    QPushButton* OKBtn;
    QPushButton* StopBtn;
    QPushButton* CancelBtn;
    QPushButton* HelpBtn;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Form_Activate();
    void addThumbnail(const QString& path, const QImage& thumbnail);
    void generationEnded(int end);

    bool mFirstActivate = true;
};
