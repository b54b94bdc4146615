// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/mixerlibrary.h"

#include <dlfcn.h>

namespace grimoval {

bool MixerLibrary::load() {
    // Never unloaded: threads of what it brings along may outlive the last sound.
    void *library = ::dlopen("libSDL2_mixer-2.0.so.0", RTLD_LAZY | RTLD_NODELETE);
    if (library == nullptr) {
        return false;
    }
    bool all = true;
#define GRIMOVAL_FIND(name)                                                                        \
    name = reinterpret_cast<decltype(name)>(::dlsym(library, #name));                              \
    all = all && name != nullptr;
    GRIMOVAL_MIXER_FUNCTIONS(GRIMOVAL_FIND)
#undef GRIMOVAL_FIND
    return all;
}

} // namespace grimoval
