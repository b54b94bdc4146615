// SPDX-License-Identifier: GPL-3.0-or-later
// The services of the system: clock, chance, documents, the application itself.
#pragma once

#include "platform/services.h"

#include <random>
#include <string>

namespace grimoval {

class QtClock : public Clock {
public:
    DateTime now() override;
};

class QtRandom : public Random {
public:
    QtRandom() { QtRandom::seed(); }
    void seed() override;
    float next() override;

private:
    std::mt19937 generator_;
};

class QtDocuments : public Documents {
public:
    explicit QtDocuments(Files &files) : files_(files) {}
    void openWeb(const Texte &address) override;
    void openDocument(const Texte &path) override;
    void showHelp(const Texte &path, const Texte &keyword) override;
    void writeMail(const Texte &address) override;

    // The viewer of the help for a program in this folder.
    static std::string helpViewerFor(const std::string &programFolder);

private:
    Files &files_;
};

class QtApplication : public Application {
public:
    ~QtApplication() override;
    // By a lock that the kernel drops with the process, however it ends. One that another account
    // holds is none of ours.
    bool previousInstance() override;
    // Another may begin: this one writes nothing any more.
    void release();
    Texte path() override;
    std::optional<Texte> userDataFolder() override;

    // The folder of the installed data for a program in this folder.
    static std::string dataFolderFor(const std::string &programFolder);

private:
    int lock_ = -1;
};

} // namespace grimoval
