// SPDX-License-Identifier: GPL-3.0-or-later
// SDL2_mixer, loaded when sound is wanted and not with the program: it brings forty libraries
// along, and the splash would wait for them.
#pragma once

#include <SDL.h>
#include <SDL_mixer.h>

namespace grimoval {

// Each is called under its own name, as a member.
#define GRIMOVAL_MIXER_FUNCTIONS(each)                                                             \
    each(SDL_Init) each(SDL_PeepEvents) each(SDL_Quit) each(SDL_RWFromFile) each(SDL_RWclose)      \
        each(SDL_RWread) each(SDL_RWseek) each(SDL_RWsize) each(SDL_ReadLE16) each(SDL_ReadLE32)   \
            each(SDL_SetHint) each(SDL_SetMainReady) each(Mix_AllocateChannels)                    \
                each(Mix_CloseAudio) each(Mix_FreeChunk) each(Mix_FreeMusic)                       \
                    each(Mix_GetSoundFonts) each(Mix_HasMusicDecoder) each(Mix_HaltChannel)        \
                        each(Mix_HaltMusic) each(Mix_Init) each(Mix_LoadMUSType_RW)                \
                            each(Mix_LoadWAV_RW) each(Mix_OpenAudio) each(Mix_PlayChannel)         \
                                each(Mix_PlayMusic) each(Mix_Playing) each(Mix_PlayingMusic)       \
                                    each(Mix_SetSoundFonts) each(Mix_VolumeMusic)

struct MixerLibrary {
#define GRIMOVAL_MEMBER(name) decltype(&::name) name = nullptr;
    GRIMOVAL_MIXER_FUNCTIONS(GRIMOVAL_MEMBER)
#undef GRIMOVAL_MEMBER

    // False on a system without it; then none of the functions may be called.
    bool load();
};

} // namespace grimoval
