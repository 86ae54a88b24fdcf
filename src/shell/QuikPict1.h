#pragma once

#include <QWidget>

class PictureView;
class QFrame;

// The small floating "Quick View" window that shows the picture selected in the main window's
// list while quick view is on. A click on the picture switches between natural size and
// stretched.
class QuikPict1 : public QWidget {
    Q_OBJECT
public:
    static QString WindowName();

    explicit QuikPict1(QWidget* parent = nullptr);
    ~QuikPict1() override;

    // Shows a picture; a file that cannot be shown leaves the picture that was there.
    void loadPicture(const QString& path);
    PictureView* picture() const { return Image1; }

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Form_Activate();
    void Image1_Click();

    QFrame* Frame1;
    PictureView* Image1;
};
