// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/failure.h"

#include "platform/files.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace grimoval {
namespace {

constexpr int numbers[] = {
    failure::overflow,
    failure::outOfMemory,
    failure::divisionByZero,
    failure::internal,
    failure::badFileNameOrNumber,
    failure::fileNotFound,
    failure::fileAlreadyOpen,
    failure::deviceError,
    failure::fileAlreadyExists,
    failure::diskFull,
    failure::inputPastEnd,
    failure::badRecordNumber,
    failure::badFileName,
    failure::tooManyFiles,
    failure::deviceUnavailable,
    failure::permissionDenied,
    failure::diskNotReady,
    failure::pathAccess,
    failure::pathNotFound,
    failure::noSuchElement,
    failure::windowUnloaded,
    failure::invalidPropertyValue,
    failure::invalidPicture,
    failure::printerError,
};

TEST(FailureMeaning, EveryNumberHasASentenceOfItsOwn) {
    const Texte unknown = failureMeaning(9999);
    EXPECT_FALSE(unknown.empty());
    for (const int number : numbers) {
        const Texte meaning = failureMeaning(number);
        EXPECT_FALSE(meaning.empty()) << number;
        EXPECT_NE(meaning, unknown) << number;
        EXPECT_EQ(meaning.back(), u'.') << number;
    }
}

TEST(FailureMeaning, CanBeWrittenInTheFilesOfTheGame) {
    for (const int number : numbers) {
        EXPECT_EQ(toAnsi(failureMeaning(number)).find('?'), std::string::npos) << number;
    }
}

TEST(Failure, CarriesTheClassicNumber) {
    EXPECT_EQ(failure::overflow, 6);
    EXPECT_EQ(failure::divisionByZero, 11);
    EXPECT_EQ(Failure(failure::fileNotFound).number, 53);
    EXPECT_STRNE(Failure(6).what(), "");
}

struct SystemRow {
    int systemError;
    int number;
};

TEST(FailureOf, MapsEachErrorOfTheSystemToItsClassicNumber) {
    const SystemRow rows[] = {
        {ENAMETOOLONG, 52}, {EINVAL, 52},    {ENOENT, 53},  {EBUSY, 55},     {ETXTBSY, 55},
        {EIO, 57},          {EEXIST, 58},    {ENOSPC, 61},  {EDQUOT, 61},    {EFBIG, 61},
        {EILSEQ, 64},       {EMFILE, 67},    {ENFILE, 67},  {ENODEV, 68},    {ENXIO, 68},
        {ESTALE, 68},       {EACCES, 70},    {EPERM, 70},   {ENOMEDIUM, 71}, {EISDIR, 75},
        {EROFS, 75},        {ENOTEMPTY, 75}, {ENOTDIR, 76}, {ELOOP, 76},
    };
    for (const SystemRow &row : rows) {
        EXPECT_EQ(failureOf(row.systemError), row.number) << row.systemError;
    }
}

TEST(FailureOf, AnyErrorHasANumberWithAMeaning) {
    const Texte unknown = failureMeaning(9999);
    for (int systemError = 1; systemError < 200; ++systemError) {
        EXPECT_NE(failureMeaning(failureOf(systemError)), unknown) << systemError;
    }
}

} // namespace
} // namespace grimoval
