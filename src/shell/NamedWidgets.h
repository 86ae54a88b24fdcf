#pragma once

#include <QString>

#include <initializer_list>

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

// The small pieces the program's dialogs are built of, each named, with its tip and an
// accessible name (its caption, or its tip when it has none).
namespace NamedWidgets {

QPushButton* button(QWidget* parent, const char* name, const QString& caption, const QString& tip);
QLabel* label(QWidget* parent, const QString& name, const QString& text);
QLineEdit* entry(QWidget* parent, const char* name, const QString& tip);
// A row holding the widgets at its right end, as a dialog's buttons stand.
QHBoxLayout* rightAligned(std::initializer_list<QWidget*> widgets);

// The window's and every child's colours from the settings: buttons in the button colour,
// entry fields in the entry colours, lists in the list colours, the rest in the window
// colours; bold as set.
void paintWindow(QWidget* window);

} // namespace NamedWidgets
