#pragma once

#include <QString>

#include <array>

// The twenty buttons of the document frame's toolbar, numbered from 1, and the sets that the
// enable operations switch on. An operation touches only the buttons it names; button 20,
// Help, is never switched off.
namespace FrameButtons {

inline constexpr int Count = 20;

struct Button {
    const char* key; // also the tag and the image name
    int image;       // 0 for a separator
    const char* toolTip;
    bool liftedAfterClick;
};

const std::array<Button, Count>& buttons();

using States = std::array<bool, Count + 1>; // index 0 unused

void DisableButtons(States& s);
void EnableButtons(States& s);
void EnableMDIButtons(States& s);
void EnableTextButtons(States& s);
void EnableDataButtons(States& s);

// Number of the button with the key, or 0.
int numberOf(const QString& key);

} // namespace FrameButtons
