// SPDX-License-Identifier: GPL-3.0-or-later
#include "cd_helper/drive.h"

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>

namespace tickwell::cd_helper {

bool Drive::IsNode(const std::string& path) {
    struct stat found {};
    return stat(path.c_str(), &found) == 0 && (S_ISBLK(found.st_mode) || S_ISCHR(found.st_mode));
}

Drive::Drive(const std::string& path) : m_descriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}

Drive::~Drive() {
    if (m_descriptor >= 0) {
        close(m_descriptor);
    }
}

DriveState Drive::State() const {
    if (m_descriptor < 0) {
        return DriveState::NotReady;
    }
    switch (ioctl(m_descriptor, CDROM_DRIVE_STATUS, CDSL_CURRENT)) {
        case CDS_DISC_OK:
        case CDS_NO_INFO:  // the drive does not report it; reading will show
            return DriveState::Disc;
        case CDS_NO_DISC:
            return DriveState::NoDisc;
        case CDS_TRAY_OPEN:
            return DriveState::TrayOpen;
        default:
            return DriveState::NotReady;
    }
}

}  // namespace tickwell::cd_helper
