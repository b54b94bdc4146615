// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/sound.h"

#include "platform/qt/mixerlibrary.h"
#include "platform/qt/tune.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace grimoval {

namespace {

constexpr int frequency = 44100, channels = 2, chunkFrames = 1024;
constexpr int waveChannel = 0;
constexpr int musicVolume = MIX_MAX_VOLUME * 90 / 100; // the tune is written to lie under the voice
// An open device asks for sound forty times a second, be there any or not.
constexpr std::chrono::seconds silence{10}, forever{3600};
// Long enough for a machine to say that it has no device, too short to be noticed.
constexpr std::chrono::milliseconds moment{300};
// What is played at most, so that no file fills the memory; ours are far smaller.
constexpr std::int64_t largestWave = 8 << 20, largestTune = 1 << 20; // bytes
constexpr Sint64 longestWave = 90;                                   // seconds

// What the library or the user has set, or else the usual places of a General MIDI soundfont.
std::string findSoundfont(const char *known) {
    if (known != nullptr) {
        const std::string first = std::string(known).substr(0, std::string(known).find(';'));
        std::error_code error;
        if (std::filesystem::is_regular_file(first, error)) {
            return first;
        }
    }
    static constexpr const char *usual[] = {
        "/usr/share/sounds/sf3/default-GM.sf3", "/usr/share/sounds/sf2/default-GM.sf2",
        "/usr/share/soundfonts/default.sf2",    "/usr/share/sounds/sf2/TimGM6mb.sf2",
        "/usr/share/sounds/sf2/FluidR3_GM.sf2",
    };
    std::error_code error;
    for (const char *path : usual) {
        if (std::filesystem::is_regular_file(path, error)) {
            return path;
        }
    }
    for (const char *folder :
         {"/usr/share/sounds/sf2", "/usr/share/sounds/sf3", "/usr/share/soundfonts"}) {
        for (const auto &entry : std::filesystem::directory_iterator(folder, error)) {
            const auto extension = entry.path().extension();
            if (extension == ".sf2" || extension == ".sf3") {
                return entry.path();
            }
        }
    }
    return {};
}

constexpr Uint32 named(const char (&name)[5]) {
    return Uint32(name[0]) | Uint32(name[1]) << 8 | Uint32(name[2]) << 16 | Uint32(name[3]) << 24;
}

// By what its header tells: a wave of few bytes a second unfolds into hundreds of times its size,
// and of one that comes to no sample at all SDL_mixer 2.8 frees the buffer twice.
bool isWave(const MixerLibrary &library, SDL_RWops *file) {
    const Sint64 size = library.SDL_RWsize(file);
    library.SDL_RWseek(file, 8, RW_SEEK_SET);
    Sint64 least = 0; // bytes of data: a thousandth of a second
    bool is = false;
    if (library.SDL_ReadLE32(file) == named("WAVE")) {
        for (Sint64 at = 12, parts = 0; at + 8 <= size && parts < 100; ++parts) {
            library.SDL_RWseek(file, at, RW_SEEK_SET);
            const Uint32 name = library.SDL_ReadLE32(file), length = library.SDL_ReadLE32(file);
            if (name == named("fmt ") && at + 24 <= size) {
                library.SDL_ReadLE16(file);
                const Sint64 tracks = library.SDL_ReadLE16(file), rate = library.SDL_ReadLE32(file);
                library.SDL_RWseek(file, 4, RW_SEEK_CUR);
                const Sint64 block = library.SDL_ReadLE16(file), bits = library.SDL_ReadLE16(file);
                if (tracks > 8 || bits > 64 || rate > 192'000 ||
                    size * 8 > longestWave * tracks * rate * bits) {
                    break;
                }
                least = std::max({Sint64{1}, block, rate * tracks * bits / 8 / 1000});
            } else if (name == named("data")) {
                is = least > 0 && std::min(Sint64{length}, size - at - 8) >= least;
                break;
            }
            at += 8 + Sint64{length} + length % 2;
        }
    }
    library.SDL_RWseek(file, 0, RW_SEEK_SET);
    return is;
}

} // namespace

struct MixerSound::Mixer {
    MixerLibrary library;
    bool there = false; // the library is
    Mix_Chunk *chunk = nullptr;
    Mix_Music *music = nullptr;
    std::string tune; // that starts again at its end, until it is stopped
    bool open = false;

    Opening start() {
        there = there || library.load();
        if (!there) {
            return Opening::silent;
        }
        library.SDL_SetMainReady();
        // Signals stay the program's: an end that is asked for from outside is an end.
        library.SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
        if (library.SDL_Init(SDL_INIT_AUDIO) != 0 ||
            library.Mix_OpenAudio(frequency, MIX_DEFAULT_FORMAT, channels, chunkFrames) != 0) {
            return Opening::silent;
        }
        open = true;
        library.Mix_AllocateChannels(1);
        library.Mix_VolumeMusic(musicVolume);
        // What it tells of itself is not enough: it counts a synthesizer that has no instruments.
        library.Mix_Init(MIX_INIT_MID);
        if (library.Mix_HasMusicDecoder("MIDI") == SDL_FALSE) {
            return Opening::waveOnly;
        }
        const std::string soundfont = findSoundfont(library.Mix_GetSoundFonts());
        if (soundfont.empty() || library.Mix_SetSoundFonts(soundfont.c_str()) == 0) {
            return Opening::waveOnly;
        }
        return Opening::both;
    }

    void end() {
        if (open) {
            dropWave();
            dropMusic();
            library.Mix_CloseAudio();
            open = false;
        }
        if (there) {
            library.SDL_Quit();
        }
    }

    // A device that went away, or the server behind it, may be back; then the tune is, too.
    void wake() {
        if (open && !isLost()) {
            return;
        }
        end();
        start();
        playMusic(tune, true);
    }

    bool isLost() const {
        bool lost = false;
        SDL_Event event;
        while (library.SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_AUDIODEVICEADDED,
                                      SDL_AUDIODEVICEREMOVED) > 0) {
            // Zero: a device of the machine that we have not opened.
            lost = lost || (event.type == SDL_AUDIODEVICEREMOVED && event.adevice.which != 0);
        }
        return lost;
    }

    bool isSilent() const {
        return open && library.Mix_Playing(waveChannel) == 0 && library.Mix_PlayingMusic() == 0;
    }

    void dropWave() {
        if (chunk != nullptr) {
            library.Mix_HaltChannel(waveChannel);
            library.Mix_FreeChunk(std::exchange(chunk, nullptr));
        }
    }

    void dropMusic() {
        if (music != nullptr) {
            library.Mix_HaltMusic();
            library.Mix_FreeMusic(std::exchange(music, nullptr));
        }
    }

    void playWave(const std::string &file) {
        if (!open) {
            return;
        }
        Mix_Chunk *next = nullptr;
        // Closed here: the library forgets the file when it is no sound.
        if (SDL_RWops *source = library.SDL_RWFromFile(file.c_str(), "rb")) {
            next = isWave(library, source) ? library.Mix_LoadWAV_RW(source, 0) : nullptr;
            library.SDL_RWclose(source);
        }
        if (next != nullptr) {
            dropWave();
            chunk = next;
            library.Mix_PlayChannel(waveChannel, chunk, 0);
        }
    }

    void playMusic(const std::string &file, bool loop) {
        if (!open) {
            return;
        }
        dropMusic();
        if (SDL_RWops *source =
                file.empty() ? nullptr : library.SDL_RWFromFile(file.c_str(), "rb")) {
            std::string bytes(static_cast<std::size_t>(largestTune) + 1, '\0');
            bytes.resize(library.SDL_RWread(source, bytes.data(), 1, bytes.size()));
            library.SDL_RWseek(source, 0, RW_SEEK_SET);
            if (bytes.size() <= largestTune && isTune(bytes)) {
                music = library.Mix_LoadMUSType_RW(source, MUS_MID, 0);
            }
            library.SDL_RWclose(source);
        }
        if (music != nullptr) {
            library.Mix_PlayMusic(music, loop ? -1 : 1);
        }
    }
};

MixerSound::MixerSound(Files &files) : files_(files), mixer_(std::make_unique<Mixer>()) {}

MixerSound::~MixerSound() {
    {
        const std::lock_guard lock(mutex_);
        closing_ = true;
        changed_.notify_all();
    }
    if (thread_.joinable()) {
        thread_.join();
    }
}

void MixerSound::open() { hasThread(); }

bool MixerSound::hasThread() {
    if (!thread_.joinable()) {
        try {
            thread_ = std::thread([this] { work(); });
        } catch (const std::system_error &) { // no more threads: silence
            return false;
        }
    }
    return true;
}

void MixerSound::work() {
    const Opening opening = mixer_->start();
    std::unique_lock lock(mutex_);
    opening_ = opening;
    changed_.notify_all();
    const auto called = [this] { return closing_ || !tasks_.empty(); };
    // Does something without keeping a caller waiting.
    const auto unlocked = [this, &lock](const auto &action) {
        busy_ = true;
        lock.unlock();
        action();
        lock.lock();
        busy_ = false;
    };
    for (;;) {
        deviceOpen_ = mixer_->open;
        if (!changed_.wait_for(lock, mixer_->open ? silence : forever, called)) {
            if (mixer_->isSilent()) {
                unlocked([this] { mixer_->end(); });
            }
            continue;
        }
        if (closing_) {
            break;
        }
        const auto task = std::move(tasks_.front());
        tasks_.pop_front();
        unlocked([&] {
            if (opening != Opening::silent) {
                mixer_->wake();
                task(*mixer_);
            }
        });
    }
    lock.unlock();
    mixer_->end();
}

void MixerSound::post(std::function<void(Mixer &)> task) {
    if (!hasThread()) {
        return;
    }
    const std::lock_guard lock(mutex_);
    tasks_.push_back(std::move(task));
    changed_.notify_all();
}

MixerSound::Opening MixerSound::opened() {
    if (!hasThread()) {
        return Opening::silent;
    }
    std::unique_lock lock(mutex_);
    if (!waitedUntil_) {
        waitedUntil_ = std::chrono::steady_clock::now() + moment;
    }
    changed_.wait_until(lock, *waitedUntil_, [this] { return opening_ != Opening::underWay; });
    return opening_ == Opening::underWay ? Opening::both : opening_;
}

bool MixerSound::waveAvailable() { return opened() != Opening::silent; }

bool MixerSound::midiAvailable() { return opened() == Opening::both; }

namespace {

// The file on the disk; empty for what is missing, or too large to be one of ours.
std::string playable(Files &files, const Texte &path, std::int64_t largest) {
    try {
        const std::string file = files.resolve(path);
        std::error_code error;
        return std::filesystem::is_regular_file(file, error) && files.length(path) <= largest
                   ? file
                   : std::string();
    } catch (const Failure &) {
        return {};
    }
}

} // namespace

void MixerSound::playWave(const Texte &path) {
    const std::string file = playable(files_, path, largestWave);
    if (file.empty()) {
        return;
    }
    post([file](Mixer &mixer) { mixer.playWave(file); });
}

void MixerSound::playMidi(const Texte &path, bool loop) {
    const std::string file = playable(files_, path, largestTune);
    post([file, loop](Mixer &mixer) {
        mixer.tune = loop ? file : std::string();
        mixer.playMusic(file, loop);
    });
}

void MixerSound::stopMidi() {
    post([](Mixer &mixer) {
        mixer.tune.clear();
        mixer.dropMusic();
    });
}

void MixerSound::finishWave(std::chrono::milliseconds patience) {
    const auto until = std::chrono::steady_clock::now() + patience;
    const auto sounds = [this] {
        const std::lock_guard lock(mutex_);
        return busy_ || !tasks_.empty() ||
               (deviceOpen_ && mixer_->library.Mix_Playing(waveChannel) != 0);
    };
    bool sounded = false;
    while (std::chrono::steady_clock::now() < until && sounds()) {
        sounded = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    // The library has no more of it, but what it gave last is still on its way out of the device.
    if (sounded) {
        std::this_thread::sleep_until(
            std::min(until, std::chrono::steady_clock::now() + std::chrono::milliseconds(100)));
    }
}

} // namespace grimoval
