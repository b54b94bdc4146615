// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <compare>

namespace grimoval {

namespace {

// The letters of the bytes 80 to 9F of Windows-1252.
constexpr std::array<char16_t, 32> highControls = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr char16_t replacement = 0xFFFD;

// The character at a place, and on to the next; nothing for what is ill-formed.
std::optional<char32_t> nextCharacter(std::string_view bytes, std::size_t &place) {
    const auto lead = static_cast<unsigned char>(bytes[place++]);
    std::size_t more = 0;
    char32_t code = lead;
    if (lead >= 0xC2 && lead <= 0xDF) {
        more = 1;
        code = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        more = 2;
        code = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        more = 3;
        code = lead & 0x07;
    } else if (lead >= 0x80) {
        return {};
    }
    std::size_t got = 0;
    while (got < more && place < bytes.size() &&
           (static_cast<unsigned char>(bytes[place]) & 0xC0) == 0x80) {
        code = (code << 6) | (static_cast<unsigned char>(bytes[place++]) & 0x3F);
        ++got;
    }
    const bool overlong = (more == 2 && code < 0x800) || (more == 3 && code < 0x10000);
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    if (got < more || overlong || surrogate || code > 0x10FFFF) {
        return {};
    }
    return code;
}

void appendUtf8(std::string &out, char32_t code) {
    const auto continued = [&out, code](int shift) {
        out += static_cast<char>(0x80 | ((code >> shift) & 0x3F));
    };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        continued(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        continued(6);
        continued(0);
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        continued(12);
        continued(6);
        continued(0);
    }
}

bool isHigh(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLow(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

// The character at a place, and on to the next: a pair of surrogates is one, a lone half itself.
char32_t nextCharacter(std::u16string_view text, std::size_t &place) {
    const char32_t first = text[place++];
    if (isHigh(first) && place < text.size() && isLow(text[place])) {
        return 0x10000 + ((first - 0xD800) << 10) + (text[place++] - 0xDC00);
    }
    return first;
}

constexpr char32_t loneByte =
    0xDC00; // a byte of a path that is no UTF-8 stands at this plus itself

bool isDigit(char16_t character) { return character >= u'0' && character <= u'9'; }

// The letters that a character is sorted as, and a rank for its accent.
struct SortKey {
    std::array<char16_t, 2> letters;
    int accent;
};

// Letters of Windows-1252 with accents or ligatures, as their plain capitals.
SortKey sortKey(char16_t character) {
    const char16_t capital = upper(character);
    struct Row {
        std::u16string_view accented;
        char16_t plain;
    };
    static constexpr Row rows[] = {
        {u"ÁÀÂÄÃÅ", u'A'}, {u"Ç", u'C'}, {u"ÉÈÊË", u'E'}, {u"ÍÌÎÏ", u'I'}, {u"Ñ", u'N'},
        {u"ÓÒÔÖÕØ", u'O'}, {u"Š", u'S'}, {u"ÚÙÛÜ", u'U'}, {u"ÝŸ", u'Y'},   {u"Ž", u'Z'},
    };
    if (capital < 0x80) {
        return {{capital, 0}, 0};
    }
    if (capital == u'Œ') {
        return {{u'O', u'E'}, 1};
    }
    if (capital == u'Æ') {
        return {{u'A', u'E'}, 1};
    }
    if (capital == u'\u00A0') {
        return {{u' ', 0}, 1};
    }
    for (const Row &row : rows) {
        const auto place = row.accented.find(capital);
        if (place != std::u16string_view::npos) {
            return {{row.plain, 0}, static_cast<int>(place) + 1};
        }
    }
    return {{capital, 0}, 0};
}

// A text as it is sorted: by its letters, then accents, then case (small before capital), then, so
// that the order is total, by the codes themselves. A ligature has two of each: texts of the same
// letters have as many accents.
struct SortText {
    explicit SortText(std::u16string_view source) : text(source) {
        for (Texte *part : {&letters, &accents, &cases}) {
            part->reserve(source.size());
        }
        for (const char16_t character : source) {
            const SortKey key = sortKey(character);
            const char16_t capital = character == upper(character) ? 1 : 0;
            letters += key.letters[0];
            accents += static_cast<char16_t>(key.accent);
            cases += capital;
            if (key.letters[1] != 0) {
                letters += key.letters[1];
                accents += u'\0';
                cases += capital;
            }
        }
    }
    auto operator<=>(const SortText &) const = default;

    Texte letters, accents, cases, text; // compared in this order
};

// Of a number that no double holds, whether it is too small; digits, a point, 'e' and an exponent.
bool isTiny(std::string_view plain) {
    const std::size_t mark = std::min(plain.find('e'), plain.size());
    const std::size_t point = std::min(plain.find('.'), mark);
    const std::size_t first = plain.find_first_of("123456789");
    long long exponent = 0;
    if (mark < plain.size()) {
        const auto [end, error] =
            std::from_chars(plain.data() + mark + 1, plain.data() + plain.size(), exponent);
        if (error == std::errc::result_out_of_range) {
            return plain[mark + 1] == '-';
        }
    }
    return static_cast<long long>(point) - static_cast<long long>(first) + exponent < 0;
}

} // namespace

Texte trim(std::u16string_view text) {
    const auto first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos) {
        return {};
    }
    const auto last = text.find_last_not_of(u' ');
    return Texte(text.substr(first, last - first + 1));
}

char16_t upper(char16_t character) {
    if (character >= u'a' && character <= u'z') {
        return static_cast<char16_t>(character - 32);
    }
    if (character >= 0xE0 && character <= 0xFE && character != 0xF7) {
        return static_cast<char16_t>(character - 32);
    }
    switch (character) {
    case u'œ':
        return u'Œ';
    case u'š':
        return u'Š';
    case u'ž':
        return u'Ž';
    case u'ÿ':
        return u'Ÿ';
    default:
        return character;
    }
}

Texte upper(std::u16string_view text) {
    Texte result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](char16_t character) { return upper(character); });
    return result;
}

bool isControl(char16_t character) {
    return character < u' ' || (character >= 0x7F && character < 0xA0);
}

Texte plainCapitals(std::u16string_view text) { return SortText(text).letters; }

Texte fromUtf8(std::string_view bytes) {
    Texte text;
    text.reserve(bytes.size());
    for (std::size_t place = 0; place < bytes.size();) {
        const std::optional<char32_t> code = nextCharacter(bytes, place);
        text += code && *code <= 0xFFFF ? static_cast<char16_t>(*code) : replacement;
    }
    return text;
}

bool isUtf8(std::string_view bytes) {
    for (std::size_t place = 0; place < bytes.size();) {
        if (!nextCharacter(bytes, place)) {
            return false;
        }
    }
    return true;
}

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 4);
    for (std::size_t place = 0; place < text.size();) {
        const char32_t code = nextCharacter(text, place);
        appendUtf8(bytes, isHigh(code) || isLow(code) ? replacement : code);
    }
    return bytes;
}

Texte fromPath(std::string_view bytes) {
    Texte text;
    text.reserve(bytes.size());
    for (std::size_t place = 0; place < bytes.size();) {
        const std::size_t start = place;
        const std::optional<char32_t> code = nextCharacter(bytes, place);
        if (!code) {
            place = start + 1; // the next byte may begin a character
            text += static_cast<char16_t>(loneByte + static_cast<unsigned char>(bytes[start]));
        } else if (*code > 0xFFFF) {
            text += static_cast<char16_t>(0xD800 + ((*code - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + (*code & 0x3FF));
        } else {
            text += static_cast<char16_t>(*code);
        }
    }
    return text;
}

std::string toPath(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 4);
    for (std::size_t place = 0; place < text.size();) {
        const char32_t code = nextCharacter(text, place);
        if (code >= loneByte + 0x80 && code <= loneByte + 0xFF) {
            bytes += static_cast<char>(code - loneByte);
        } else {
            appendUtf8(bytes, isHigh(code) || isLow(code) ? replacement : code);
        }
    }
    return bytes;
}

char16_t fromAnsiCode(int code) {
    return code >= 0x80 && code <= 0x9F ? highControls[static_cast<std::size_t>(code - 0x80)]
                                        : static_cast<char16_t>(code & 0xFF);
}

int ansiCode(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return character;
    }
    const auto place = std::find(highControls.begin(), highControls.end(), character);
    return place == highControls.end() ? -1 : 0x80 + static_cast<int>(place - highControls.begin());
}

Texte fromAnsi(std::string_view bytes) {
    Texte text(bytes.size(), u' ');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return fromAnsiCode(static_cast<unsigned char>(byte)); });
    return text;
}

std::string toAnsi(std::u16string_view text) {
    std::string bytes(text.size(), '?');
    std::transform(text.begin(), text.end(), bytes.begin(), [](char16_t character) {
        const int code = ansiCode(character);
        return code < 0 ? '?' : static_cast<char>(code);
    });
    return bytes;
}

std::optional<double> numericValue(std::u16string_view text) {
    std::string plain; // what from_chars reads: no blank, no plus sign, a point
    const Texte trimmed = trim(text);
    std::size_t i = 0;
    bool negative = false;
    if (i < trimmed.size() && (trimmed[i] == u'+' || trimmed[i] == u'-')) {
        negative = trimmed[i] == u'-';
        ++i;
        while (i < trimmed.size() && trimmed[i] == u' ') {
            ++i;
        }
    }
    std::size_t digits = 0;
    bool separator = false;
    for (; i < trimmed.size(); ++i) {
        const char16_t character = trimmed[i];
        if (isDigit(character)) {
            plain += static_cast<char>(character);
            ++digits;
        } else if ((character == u'.' || character == u',') && !separator) {
            plain += '.';
            separator = true;
        } else {
            break;
        }
    }
    if (digits == 0) {
        return {};
    }
    if (i < trimmed.size() && (trimmed[i] == u'e' || trimmed[i] == u'E')) {
        plain += 'e';
        ++i;
        if (i < trimmed.size() && (trimmed[i] == u'+' || trimmed[i] == u'-')) {
            if (trimmed[i] == u'-') {
                plain += '-';
            }
            ++i;
        }
        if (i == trimmed.size()) {
            return {};
        }
        for (; i < trimmed.size() && isDigit(trimmed[i]); ++i) {
            plain += static_cast<char>(trimmed[i]);
        }
    }
    if (i != trimmed.size()) {
        return {};
    }
    if (plain.front() == '.') {
        plain.insert(plain.begin(), '0');
    }
    double value = 0;
    const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), value);
    if (end != plain.data() + plain.size()) {
        return {};
    }
    if (error == std::errc::result_out_of_range) {
        // Too small is 0, too large is no number.
        if (!isTiny(plain)) {
            return {};
        }
        value = 0;
    } else if (error != std::errc()) {
        return {};
    }
    return negative ? -value : value;
}

Texte decimal(int value) { return fromUtf8(std::to_string(value)); }

int compareFrench(std::u16string_view left, std::u16string_view right) {
    const auto order = SortText(left) <=> SortText(right);
    return (order > 0) - (order < 0);
}

void sortFrench(std::vector<Texte> &texts) {
    std::vector<SortText> keyed(texts.begin(), texts.end());
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), texts.begin(),
                   [](SortText &key) { return std::move(key.text); });
}

} // namespace grimoval
