// SPDX-License-Identifier: GPL-3.0-or-later
// The records of the two files of word bases, byte by byte.
#include "support/failures.h"
#include "support/game.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace grimoval::test::base_records {

// A record with another byte in every field.
TypeMot someWord() {
    TypeMot record;
    record.EntierDebut = 0x1234;
    record.Mot = Texte(u"ÉTÉ");
    record.EntierMilieu = -2;
    record.TexteLong = Texte(u"long");
    record.TexteCourt = Texte(u"court");
    record.EntierFin = 258;
    return record;
}

TEST(WordRecord, Has84BytesWithItsFieldsAtTheirOffsets) {
    const std::string bytes = someWord().ecrire();
    ASSERT_EQ(bytes.size(), 84u);
    EXPECT_EQ(bytes.substr(0, 2), "\x34\x12");
    EXPECT_EQ(bytes.substr(2, 30), "\xC9T\xC9" + std::string(27, ' '));
    EXPECT_EQ(bytes.substr(32, 2), "\xFE\xFF");
    EXPECT_EQ(bytes.substr(34, 40), "long" + std::string(36, ' '));
    EXPECT_EQ(bytes.substr(74, 8), "court   ");
    EXPECT_EQ(bytes.substr(82, 2), "\x02\x01");
}

TEST(BaseRecord, Has52BytesWithItsFieldsAtTheirOffsets) {
    const std::string bytes = baseRecord(3, 300, u"FRUITS", u"Les fruits d'été", u"POMME", -1);
    ASSERT_EQ(bytes.size(), 52u);
    EXPECT_EQ(bytes.substr(0, 2), std::string("\x03\x00", 2));
    EXPECT_EQ(bytes.substr(2, 2), "\x2C\x01");
    EXPECT_EQ(bytes.substr(4, 8), "FRUITS  ");
    EXPECT_EQ(bytes.substr(12, 30), "Les fruits d'\xE9t\xE9" + std::string(14, ' '));
    EXPECT_EQ(bytes.substr(42, 8), "POMME   ");
    EXPECT_EQ(bytes.substr(50, 2), "\xFF\xFF");
}

TEST(WordRecord, IsReadAtTheSameOffsets) {
    const TypeMot record = TypeMot::lire(someWord().ecrire());
    EXPECT_EQ(record.EntierDebut, 0x1234);
    EXPECT_EQ(toUtf8(trim(record.Mot.text())), "ÉTÉ");
    EXPECT_EQ(record.Mot.text().size(), 30u);
    EXPECT_EQ(record.EntierMilieu, -2);
    EXPECT_EQ(toUtf8(trim(record.TexteLong.text())), "long");
    EXPECT_EQ(toUtf8(trim(record.TexteCourt.text())), "court");
    EXPECT_EQ(record.EntierFin, 258);
}

TEST(BaseRecord, IsReadAtTheSameOffsets) {
    const TypeBase record = TypeBase::lire(baseRecord(32767, -32768, u"A", u"B", u"C", 0));
    EXPECT_EQ(record.Numero, 32767);
    EXPECT_EQ(record.NbMots, -32768);
    EXPECT_EQ(toUtf8(record.Fichier.text()), "A       ");
    EXPECT_EQ(toUtf8(record.Titre.text()), "B" + std::string(29, ' '));
    EXPECT_EQ(toUtf8(record.Image.text()), "C       ");
    EXPECT_EQ(record.Actif, 0);
}

TEST(Records, OfAnotherLengthAreRefused) {
    for (const std::size_t length :
         {std::size_t{0}, std::size_t{51}, std::size_t{53}, std::size_t{83}, std::size_t{85}}) {
        const std::string bytes(length, ' ');
        EXPECT_EQ(failureNumber([&] { TypeMot::lire(bytes); }), 51) << length;
        EXPECT_EQ(failureNumber([&] { TypeBase::lire(bytes); }), 51) << length;
    }
}

RC_GTEST_PROP(Records, OfAnyBytesAreWrittenAsTheyWereRead, ()) {
    const auto bytes = [](std::size_t length) {
        return *rc::gen::container<std::string>(length, rc::gen::arbitrary<char>());
    };
    const std::string word = bytes(84), base = bytes(52);
    RC_ASSERT(TypeMot::lire(word).ecrire() == word);
    RC_ASSERT(TypeBase::lire(base).ecrire() == base);
}

} // namespace grimoval::test::base_records
