#pragma once

#include <QWidget>

class QLabel;
class QToolButton;

// The navigator of a data control: a caption between the buttons that move to the first, the
// previous, the next and the last record. A click first tells the owner which move is about to
// happen (Validate), then moves (through moveRecord), then says that the record changed
// (Reposition).
class DataNavigator : public QWidget {
    Q_OBJECT
public:
    enum Action { MoveFirst = 1, MovePrevious = 2, MoveNext = 3, MoveLast = 4 };

    explicit DataNavigator(QWidget* parent = nullptr);

    QString Caption() const;
    void setCaption(const QString& caption);
    QToolButton* button(Action action) const;

    // Moves as a click on the action's button does.
    void navigate(Action action);

Q_SIGNALS:
    void Validate(int action);
    void Reposition();

protected:
    // Moves the current record of the data behind the control.
    virtual void moveRecord(Action action) = 0;

private:
    QLabel* m_caption;
    QToolButton* m_buttons[4];
};
