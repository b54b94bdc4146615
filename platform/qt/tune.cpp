// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/tune.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace grimoval {

namespace {

class Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    bool ended() const { return bytes_.empty(); }
    int byte() {
        if (bytes_.empty()) {
            return broken();
        }
        const auto value = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return value;
    }
    unsigned number(int size) {
        unsigned value = 0;
        for (; size > 0; --size) {
            value = value << 8 | static_cast<unsigned>(byte());
        }
        return value;
    }
    // Seven bits a byte, at most four of them.
    unsigned quantity() {
        unsigned value = 0;
        for (int size = 0; size < 4; ++size) {
            const auto next = static_cast<unsigned>(byte());
            value = value << 7 | (next & 0x7F);
            if (next < 0x80) {
                return value;
            }
        }
        broken();
        return 0;
    }
    std::string_view take(std::size_t size) {
        if (size > bytes_.size()) {
            broken();
            size = 0;
        }
        const std::string_view taken = bytes_.substr(0, size);
        bytes_.remove_prefix(size);
        return taken;
    }
    int broken() {
        whole_ = false;
        bytes_ = {};
        return 0;
    }
    bool isWhole() const { return whole_; }

private:
    std::string_view bytes_;
    bool whole_ = true;
};

constexpr int endOfTrack = 0x2F, tempo = 0x51;

constexpr unsigned mostTracks =
    64; // from 128 on the library hangs; a tune of sixteen voices has 17
constexpr int mostInASecond = 1000; // by weight; the synthesizer has 256 voices
constexpr int noteWeight = 8;       // of a note that begins; of any other event 1
constexpr double beatAtFirst = 0.5; // seconds, until a tempo is told

// The length of what is told in a known form; the library complains for ever of any other.
std::optional<std::size_t> lengthOfKind(int kind) {
    switch (kind) {
    case 0x2F: // the end of a track
        return 0;
    case 0x51: // the tempo
        return 3;
    case 0x54: // an offset in frames of a film
        return 5;
    case 0x58: // bars
        return 4;
    case 0x59: // the key
        return 2;
    default:
        return std::nullopt;
    }
}

struct Event {
    unsigned long tick;
    double beat = 0; // seconds, from here on; 0: as before
    int weight = 1;
};

// How many data bytes follow a status of a channel.
int dataOf(int status) { return status >= 0xC0 && status < 0xE0 ? 1 : 2; }

// How long a track lasts, in ticks; nothing if it is not in form. Its events are added.
std::optional<unsigned long> lengthOf(std::string_view track, std::vector<Event> &events) {
    Reader in(track);
    unsigned long ticks = 0;
    int running = 0;
    while (in.isWhole() && !in.ended()) {
        ticks += in.quantity();
        int status = in.byte(), first = -1;
        Event event{ticks};
        if (status < 0x80) {
            first = status;
            status = running;
        }
        if (status == 0xFF) {
            const int kind = in.byte();
            const std::string_view content = in.take(in.quantity());
            if (content.size() != lengthOfKind(kind).value_or(content.size())) {
                in.broken();
            } else if (kind == tempo) {
                event.beat = Reader(content).number(3) / 1e6;
                if (event.beat == 0) {
                    in.broken();
                }
            } else if (kind == endOfTrack) {
                return in.isWhole() ? std::optional(ticks) : std::nullopt;
            }
        } else if (status == 0xF0 || status == 0xF7) {
            in.take(in.quantity());
        } else if (status >= 0x80 && status < 0xF0) {
            running = status;
            event.weight = status < 0x90 || status >= 0xA0 ? 1 : noteWeight;
            for (int left = dataOf(status) - (first < 0 ? 0 : 1); left > 0; --left) {
                if (in.byte() >= 0x80) {
                    in.broken();
                }
            }
        } else {
            in.broken();
        }
        events.push_back(event);
    }
    return std::nullopt; // its end is missing
}

// More in some second than a player can take, the tune being played again and again.
bool isCrowded(std::vector<Event> events, unsigned long end, unsigned ticksABeat) {
    std::stable_sort(events.begin(), events.end(),
                     [](const Event &one, const Event &other) { return one.tick < other.tick; });
    double beat = beatAtFirst, now = 0;
    unsigned long tick = 0;
    const auto goTo = [&](unsigned long next) {
        now += static_cast<double>(next - tick) / ticksABeat * beat;
        tick = next;
    };
    std::vector<double> times;
    long long total = 0, inASecond = 0;
    std::size_t first = 0;
    for (const Event &event : events) {
        goTo(event.tick);
        beat = event.beat > 0 ? event.beat : beat;
        times.push_back(now);
        total += event.weight;
        inASecond += event.weight;
        while (times[first] + 1 < now) {
            inASecond -= events[first++].weight;
        }
        if (inASecond > mostInASecond) {
            return true;
        }
    }
    goTo(end);
    return static_cast<double>(total) > mostInASecond * now;
}

} // namespace

bool isTune(std::string_view bytes) {
    Reader in(bytes);
    if (in.take(4) != "MThd") {
        return false;
    }
    Reader header(in.take(in.number(4)));
    const unsigned form = header.number(2), tracks = header.number(2), division = header.number(2);
    if (!header.isWhole() || form > 1 || tracks == 0 || division == 0 || division >= 0x8000 ||
        tracks > mostTracks) {
        return false;
    }
    unsigned found = 0;
    unsigned long longest = 0;
    std::vector<Event> events;
    while (in.isWhole() && found < tracks) {
        const std::string_view name = in.take(4), content = in.take(in.number(4));
        if (in.isWhole() && name == "MTrk") {
            const auto length = lengthOf(content, events);
            if (!length) {
                return false;
            }
            longest = std::max(longest, *length);
            ++found;
        }
    }
    return in.isWhole() && longest > 0 && !isCrowded(std::move(events), longest, division);
}

} // namespace grimoval
