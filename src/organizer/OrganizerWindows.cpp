#include "organizer/OrganizerWindows.h"

#include "organizer/GrpBatch1.h"
#include "organizer/GrpBrow1.h"
#include "organizer/GrpClear1.h"
#include "organizer/GrpFind.h"
#include "organizer/GrpFlem1.h"
#include "organizer/GrpMaint.h"
#include "organizer/GrpRepair1.h"
#include "platform/WindowRegistry.h"

namespace {

template <class W> void registerWindow() {
    WindowRegistry::setFactory(W::WindowName(), [] { return new W; });
}

} // namespace

void registerOrganizerWindows() {
    registerWindow<GrpMaint>();
    registerWindow<GrpRepair1>();
    registerWindow<GrpClear1>();
    registerWindow<GrpFlem1>();
    registerWindow<GrpFind2>();
    registerWindow<GrpBrow1>();
    registerWindow<GrpFind1>();
    registerWindow<GrpBatch1>();
}
