#include "shell/Globals.h"

Globals& globals() {
    static Globals instance;
    return instance;
}

void resetGlobals() {
    globals() = Globals{};
}
