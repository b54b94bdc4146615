// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/process.h"

#include "support/temporary_folder.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace grimoval::test {

namespace {

std::vector<char *> pointers(std::vector<std::string> &texts) {
    std::vector<char *> all;
    for (std::string &text : texts) {
        all.push_back(text.data());
    }
    all.push_back(nullptr);
    return all;
}

} // namespace

Answer run(const std::vector<std::string> &words, const std::vector<std::string> &settings,
           bool ordinaryUser, const std::string &input) {
    const TemporaryFolder folder;
    folder.write(u"entree", input);
    const std::string entry = folder.bytePath(u"entree"), output = folder.bytePath(u"sortie"),
                      errors = folder.bytePath(u"erreurs");
    std::vector<std::string> arguments = words, environment = settings;
    for (char **setting = environ; *setting != nullptr; ++setting) {
        environment.emplace_back(*setting);
    }
    const std::vector<char *> argumentPointers = pointers(arguments),
                              environmentPointers = pointers(environment);
    const pid_t child = ::fork();
    if (child < 0) {
        throw std::system_error(errno, std::generic_category(), "fork");
    }
    if (child == 0) {
        const int flags = O_WRONLY | O_CREAT | O_TRUNC;
        const int in = ::open(entry.c_str(), O_RDONLY), out = ::open(output.c_str(), flags, 0644),
                  err = ::open(errors.c_str(), flags, 0644);
        constexpr uid_t nobody = 65534;
        const bool ready = ::dup2(in, 0) == 0 && ::dup2(out, 1) == 1 && ::dup2(err, 2) == 2 &&
                           (!ordinaryUser || ::geteuid() != 0 || ::setuid(nobody) == 0);
        if (ready) {
            ::execve(argumentPointers[0], argumentPointers.data(), environmentPointers.data());
        }
        ::_exit(127);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    Answer answer;
    answer.killed = WIFSIGNALED(status);
    answer.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    answer.output = folder.read(u"sortie");
    answer.errors = folder.read(u"erreurs");
    return answer;
}

} // namespace grimoval::test
