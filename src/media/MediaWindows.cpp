#include "media/MediaWindows.h"

#include "media/AudioVideo1.h"
#include "media/ProPert1.h"
#include "media/ThumBrow1.h"
#include "platform/WindowRegistry.h"

void registerMediaWindows() {
    WindowRegistry::setFactory(ThumBrow1::WindowName(), [] { return new ThumBrow1; });
    WindowRegistry::setFactory(ProPert1::WindowName(), [] { return new ProPert1; });
    WindowRegistry::setFactory(AudioVideo1::WindowName(), [] { return new AudioVideo1; });
}
