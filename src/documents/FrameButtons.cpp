#include "documents/FrameButtons.h"

#include <initializer_list>

namespace FrameButtons {

const std::array<Button, Count>& buttons() {
    static const std::array<Button, Count> table = {{
        {"Open", 1, "Open a File to View", true},
        {"Close", 2, "Close Selected File", true},
        {"Save", 3, "Save File", true},
        {"Rename", 4, "Rename the File", true},
        {"Move", 5, "Move the File to another Folder", true},
        {"Delete", 6, "Move the File to the Recycle Bin", true},
        {"Print", 7, "Print the File", true},
        {"Send", 8, "Send the File to someone over the Internet", true},
        {"Sep1", 0, "", false},
        {"Copy", 9, "Copy the File", true},
        {"Sep2", 0, "", false},
        {"Table", 10, "Select the Table from the Database File", false},
        {"Index", 11, "Select the Index for the Table", false},
        {"Normal", 12, "Select Normal Picture View", false},
        {"Stretch", 13, "Stretch the Picture into the window frame", false},
        {"Sep3", 0, "", false},
        {"Resize", 14, "Resize the Picture or Image", true},
        {"Brightness", 15, "Set the Picture Brightness", true},
        {"Sep4", 0, "", false},
        {"Help", 16, "Help with Quorvane", false},
    }};
    return table;
}

namespace {
void enable(States& s, std::initializer_list<int> numbers) {
    for (int n : numbers)
        s[static_cast<size_t>(n)] = true;
}
} // namespace

void DisableButtons(States& s) {
    // Stops at 19: Help stays as it is.
    for (int n = 1; n <= 19; ++n)
        s[static_cast<size_t>(n)] = false;
}

void EnableButtons(States& s) {
    for (int n = 1; n <= 19; ++n)
        s[static_cast<size_t>(n)] = true;
    s[12] = false;
    s[13] = false;
}

void EnableMDIButtons(States& s) {
    enable(s, {1, 19});
}

void EnableTextButtons(States& s) {
    enable(s, {1, 2, 3, 4, 5, 6, 7, 8, 10, 19});
}

void EnableDataButtons(States& s) {
    enable(s, {1, 2, 3, 4, 5, 6, 7, 8, 10, 12, 13, 19});
}

int numberOf(const QString& key) {
    for (int i = 0; i < Count; ++i) {
        if (key == QLatin1String(buttons()[static_cast<size_t>(i)].key))
            return i + 1;
    }
    return 0;
}

} // namespace FrameButtons
