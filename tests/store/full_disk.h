// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <sys/resource.h>

#include <QtGlobal>
#include <csignal>

namespace tickwell::store {

/// Simulates a full disk: during its lifetime no file of this process can grow beyond `size`.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        Set({size, m_before.rlim_max});
    }
    ~FullDisk() { Set(m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    static void Set(rlimit limit) {
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) {
            qFatal("setrlimit");
        }
    }

    rlimit m_before{};
};

}  // namespace tickwell::store
