// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/tune.h"

#include <algorithm>
#include <optional>

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

constexpr int endOfTrack = 0x2F;

// How many data bytes follow a status of a channel.
int dataOf(int status) { return status >= 0xC0 && status < 0xE0 ? 1 : 2; }

// How long a track lasts, in ticks; nothing if it is not in form.
std::optional<unsigned long> lengthOf(std::string_view track) {
    Reader in(track);
    unsigned long ticks = 0;
    int running = 0;
    while (in.isWhole() && !in.ended()) {
        ticks += in.quantity();
        int status = in.byte(), first = -1;
        if (status < 0x80) {
            first = status;
            status = running;
        }
        if (status == 0xFF) {
            const int kind = in.byte();
            in.take(in.quantity());
            if (kind == endOfTrack) {
                return in.isWhole() ? std::optional(ticks) : std::nullopt;
            }
        } else if (status == 0xF0 || status == 0xF7) {
            in.take(in.quantity());
        } else if (status >= 0x80 && status < 0xF0) {
            running = status;
            for (int left = dataOf(status) - (first < 0 ? 0 : 1); left > 0; --left) {
                if (in.byte() >= 0x80) {
                    in.broken();
                }
            }
        } else {
            in.broken();
        }
    }
    return std::nullopt; // its end is missing
}

} // namespace

bool isTune(std::string_view bytes) {
    Reader in(bytes);
    if (in.take(4) != "MThd") {
        return false;
    }
    Reader header(in.take(in.number(4)));
    const unsigned form = header.number(2), tracks = header.number(2), division = header.number(2);
    if (!header.isWhole() || form > 1 || tracks == 0 || division == 0 || division >= 0x8000) {
        return false;
    }
    unsigned found = 0;
    unsigned long longest = 0;
    while (in.isWhole() && found < tracks) {
        const std::string_view name = in.take(4), content = in.take(in.number(4));
        if (in.isWhole() && name == "MTrk") {
            const auto length = lengthOf(content);
            if (!length) {
                return false;
            }
            longest = std::max(longest, *length);
            ++found;
        }
    }
    return in.isWhole() && longest > 0;
}

} // namespace grimoval
