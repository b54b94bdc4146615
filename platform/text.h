// SPDX-License-Identifier: GPL-3.0-or-later
// Text of the core: UTF-16, one unit a letter. Files are Windows-1252 (the WHATWG table of
// windows-1252: the five bytes without a letter stand for the control character of their code).
#pragma once

#include <concepts>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace grimoval {

using Texte = std::u16string;

// Without the blanks (U+0020 alone) at both ends.
Texte trim(std::u16string_view text);

// Capitals, for the letters that Windows-1252 holds; every other character stays.
char16_t upper(char16_t character);
Texte upper(std::u16string_view text);

// A command to whatever shows the text, no character of it.
bool isControl(char16_t character);

// Capitals without accents, a ligature as its two letters: what a text is looked up by.
Texte plainCapitals(std::u16string_view text);

// UTF-8 in and out, for texts; what is ill-formed becomes U+FFFD, and on the way in what lies
// beyond 16 bits too.
Texte fromUtf8(std::string_view bytes);
std::string toUtf8(std::u16string_view text);
bool isUtf8(std::string_view bytes); // well-formed throughout

// Paths in and out without loss, whatever bytes they hold: what lies beyond 16 bits is a pair of
// surrogates, and a byte that belongs to no UTF-8 is the low surrogate U+DC00 plus that byte.
Texte fromPath(std::string_view bytes);
std::string toPath(std::u16string_view text);

// Windows-1252 in and out; what has no place there becomes '?'.
Texte fromAnsi(std::string_view bytes);
std::string toAnsi(std::u16string_view text);

// The Windows-1252 code of a character, 0 to 255; -1 if it has none.
int ansiCode(char16_t character);
char16_t fromAnsiCode(int code);

// The value of numeric text: blanks around, an optional sign, decimal digits with at most one
// separator ('.' or ','), an optional exponent. Nothing for any other text or an infinite value.
std::optional<double> numericValue(std::u16string_view text);

// Plain decimal, without a leading blank.
Texte decimal(int value);

// French order: letters first without case and accents, then accents, then case. Negative, 0 or
// positive.
int compareFrench(std::u16string_view left, std::u16string_view right);
void sortFrench(std::vector<Texte> &texts);

// A text of a fixed number of characters, padded with blanks at the right, cut at its width.
template <std::size_t Width>
class FixedText {
public:
    FixedText() : text_(Width, u' ') {}
    template <class Text>
    requires std::convertible_to<Text, std::u16string_view> FixedText(const Text &text)
        : text_(std::u16string_view(text).substr(0, Width)) {
        text_.resize(Width, u' ');
    }
    operator const Texte &() const { return text_; }
    const Texte &text() const { return text_; }

private:
    Texte text_;
};

} // namespace grimoval
