// The text and the shapes stamped on a picture document by clicks, as set up by the text and
// shape windows.
#include "documents/ChildFrm1.h"

#include "documents/ShapePainter.h"
#include "documents/TextStamp.h"
#include "platform/SettingColor.h"
#include "platform/WindowRegistry.h"
#include "platform/imaging/PictureView.h"
#include "shell/Globals.h"

#include <QAction>
#include <QPointer>

using namespace Qt::StringLiterals;

void ChildFrm1::setDrawingDefaults() {
    const Globals& g = globals();
    SHAPE_COLOR = g.gWindowBackColor;
    SHAPEBORDER_COLOR = g.gWindowForeColor;
    menuAction("mnuImageText")->setChecked(false);
}

void ChildFrm1::mnuImageText_Click() {
    WindowRegistry::show(u"AddText1"_s, WindowRegistry::Modal);
}

void ChildFrm1::mnuImageShapes_Click() {
    const QPointer<ChildFrm1> self(this);
    WindowRegistry::show(u"AddShape1"_s, WindowRegistry::Modal);
    // Whichever button closed the window; after a Cancel no draw is armed.
    if (self)
        DRAWMENU = u"Shape"_s;
}

void ChildFrm1::drawText(QPoint at) {
    if (!Image1 || Image1->image().isNull())
        return;
    TextStamp::Stamp stamp;
    stamp.text = DRAW_TEXT;
    stamp.fontName = TEXT_FONT;
    stamp.fontSize = TEXT_FONT_SIZE;
    stamp.bold = TEXT_FONT_BOLD;
    stamp.italic = TEXT_FONT_ITALIC;
    stamp.color = SettingColor::toQColor(TEXT_COLOR);
    stamp.shadow = SettingColor::toQColor(TEXTSHADOW_COLOR);
    stamp.highlight = SettingColor::toQColor(TEXTHIGHLIGHT_COLOR);
    stamp.rectangle = SettingColor::toQColor(TEXTRECTANGLE_COLOR);
    stamp.withRectangle = TEXTRECTANGLE_FLG;
    stamp.style = TEXT_STYLE;
    Image1->setAutoRepaint(false);
    TextStamp::draw(Image1->editableImage(), at, stamp);
    mDirty = true;
    Image1->setAutoRepaint(true);
}

void ChildFrm1::drawShape(QPoint at) {
    if (!Image1 || Image1->image().isNull())
        return;
    ShapePainter::Shape shape;
    shape.code = SHAPE;
    shape.width = SHAPE_WIDTH;
    shape.height = SHAPE_HEIGHT;
    shape.fill = SettingColor::toQColor(SHAPE_COLOR);
    shape.border = SettingColor::toQColor(SHAPEBORDER_COLOR);
    shape.innerBand = SHAPE_INRBAND;
    shape.outerBand = SHAPE_OUTBAND;
    Image1->setAutoRepaint(false);
    // A code that is no shape draws nothing, without a word.
    if (ShapePainter::draw(Image1->editableImage(), at, shape))
        mDirty = true;
    Image1->setAutoRepaint(true);
}
