// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bases/verrou.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace grimoval::outils {

namespace {

constexpr std::chrono::milliseconds pause{50};
constexpr int toujours = O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

// A plain file of this account, the administrator or the folder's owner, each of whom may change
// these bases anyway.
bool convient(const struct stat &fichier, const struct stat &dossier) {
    return S_ISREG(fichier.st_mode) && fichier.st_nlink <= 1 &&
           (fichier.st_uid == ::geteuid() || fichier.st_uid == 0 ||
            fichier.st_uid == dossier.st_uid);
}

} // namespace

Verrou::Verrou(Files &fichiers, const Texte &dossier, std::chrono::milliseconds attente)
    : dossier_(fichiers.resolve(dossier)), chemin_(dossier_ + "/.verrou") {
    using Horloge = std::chrono::steady_clock;
    const Horloge::time_point fin = Horloge::now() + attente;
    while (!essayer()) {
        if (Horloge::now() >= fin) {
            throw Failure(failure::fileAlreadyOpen);
        }
        std::this_thread::sleep_for(pause);
    }
}

Verrou::~Verrou() {
    ::unlink(chemin_.c_str());
    ::close(descripteur_);
}

// The file that is there, or a new one; -1 where it is another writer's.
int Verrou::ouvrir() const {
    const int neuf = ::open(chemin_.c_str(), toujours | O_CREAT | O_EXCL, 0600);
    if (neuf >= 0) {
        // What the administrator makes in another's folder is that one's; a disk may have no
        // owners.
        struct stat dossier {};
        [[maybe_unused]] const bool donne = ::geteuid() == 0 &&
                                            ::stat(dossier_.c_str(), &dossier) == 0 &&
                                            ::fchown(neuf, dossier.st_uid, dossier.st_gid) == 0;
        return neuf;
    }
    if (errno != EEXIST) {
        throw Failure(errno == ENOENT ? static_cast<int>(failure::pathNotFound) : failureOf(errno));
    }
    const int ancien = ::open(chemin_.c_str(), toujours);
    if (ancien < 0 && errno == EACCES && ::access(dossier_.c_str(), W_OK) != 0) {
        throw Failure(failure::permissionDenied);
    }
    return ancien;
}

bool Verrou::essayer() {
    struct stat dossier {
    }, fichier{}, ouvert{};
    // What another account has put there is in nobody's hands.
    if (::stat(dossier_.c_str(), &dossier) == 0 && ::lstat(chemin_.c_str(), &fichier) == 0 &&
        !convient(fichier, dossier) && ::unlink(chemin_.c_str()) != 0 && errno != ENOENT) {
        throw Failure(failureOf(errno));
    }
    descripteur_ = ouvrir();
    if (descripteur_ < 0) {
        return false;
    }
    // A disk without locks has one writer as well, by all likelihood. Who held it last has removed
    // the file: what was opened must be what stands there.
    const bool tenu = ::flock(descripteur_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (!tenu && ::fstat(descripteur_, &ouvert) == 0 && convient(ouvert, dossier) &&
        ::lstat(chemin_.c_str(), &fichier) == 0 && fichier.st_ino == ouvert.st_ino &&
        fichier.st_dev == ouvert.st_dev) {
        return true;
    }
    ::close(descripteur_);
    return false;
}

} // namespace grimoval::outils
