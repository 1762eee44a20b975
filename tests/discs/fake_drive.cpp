// SPDX-License-Identifier: GPL-3.0-or-later
// A library to be preloaded: presents one character device as a CD drive to the program that opens it. The
// disc in the drive is described by environment variables and by files that a test creates and removes while
// the program runs:
//
//   FAKE_DRIVE_NODE   path of the drive: a link to a character device such as /dev/zero
//   FAKE_DRIVE_DISC   file that describes the disc. If it is missing, the drive is empty. Its words:
//                     the file of the sectors, then for each track a (audio) or d (data) and its first
//                     sector, then L and the first sector after the last one: "disc.bin a0 a321 a548 L931"
//   FAKE_DRIVE_TRAY   if this file exists, the tray is open
//   FAKE_DRIVE_BUSY   if this file exists, the drive is not ready
//   FAKE_DRIVE_DELAY  milliseconds that each read of sectors takes
//   FAKE_DRIVE_BAD    a sector that cannot be read
//   FAKE_DRIVE_TITLES file of the packs with the titles; if it is missing, the disc has none

#include <dlfcn.h>
#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

constexpr int kSectorBytes = 2352;
constexpr int kLeadOutTrack = 0xAA;
constexpr int kReadCd = 0xBE;
constexpr int kReadContents = 0x43;
constexpr int kCdTextFormat = 5;
constexpr int kDataControl = 4;

using OpenFunction = int (*)(const char*, int, ...);
using IoctlFunction = int (*)(int, unsigned long, ...);

struct Track {
    int start = 0;
    bool isData = false;
};

struct FakeDisc {
    std::string sectors;
    std::vector<Track> tracks;
    int end = 0;
    bool isThere = false;
};

template <typename Function>
Function Real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool IsThere(const char* variable) {
    const char* const path = getenv(variable);
    return path != nullptr && access(path, F_OK) == 0;
}

int Number(const char* variable, int otherwise) {
    const char* const text = getenv(variable);
    return text == nullptr ? otherwise : atoi(text);
}

bool IsEmpty() {
    return !IsThere("FAKE_DRIVE_DISC") || IsThere("FAKE_DRIVE_TRAY") || IsThere("FAKE_DRIVE_BUSY");
}

FakeDisc ReadDisc() {
    FakeDisc disc;
    if (IsEmpty()) {
        return disc;
    }
    std::ifstream file(getenv("FAKE_DRIVE_DISC"));
    file >> disc.sectors;
    for (std::string word; file >> word;) {
        const int sector = atoi(word.c_str() + 1);
        if (word.front() == 'L') {
            disc.end = sector;
        } else {
            disc.tracks.push_back({sector, word.front() == 'd'});
        }
    }
    disc.isThere = disc.end > 0;
    return disc;
}

/// The program's descriptors that refer to the drive.
class Drives {
public:
    void Add(int descriptor) {
        if (m_count < m_descriptors.size()) {
            m_descriptors[m_count++] = descriptor;
        }
    }
    bool Has(int descriptor) const {
        return std::find(m_descriptors.begin(), m_descriptors.begin() + m_count, descriptor) !=
               m_descriptors.begin() + m_count;
    }

private:
    std::array<int, 16> m_descriptors{};
    std::size_t m_count = 0;
};

Drives& OpenDrives() {
    static Drives drives;
    return drives;
}

int Failed(int error) {
    errno = error;
    return -1;
}

int Status() {
    if (IsThere("FAKE_DRIVE_TRAY")) {
        return CDS_TRAY_OPEN;
    }
    if (IsThere("FAKE_DRIVE_BUSY")) {
        return CDS_DRIVE_NOT_READY;
    }
    return IsEmpty() ? CDS_NO_DISC : CDS_DISC_OK;
}

int DiscStatus(const FakeDisc& disc) {
    const auto data =
        std::count_if(disc.tracks.begin(), disc.tracks.end(), [](const Track& one) { return one.isData; });
    if (!disc.isThere) {
        return CDS_NO_DISC;
    }
    if (data == 0) {
        return CDS_AUDIO;
    }
    return data == static_cast<std::ptrdiff_t>(disc.tracks.size()) ? CDS_DATA_1 : CDS_MIXED;
}

/// A number that identifies the disc: replacing the disc means replacing its file.
std::int64_t DiscNumber() {
    struct stat found {};
    const char* const path = getenv("FAKE_DRIVE_DISC");
    if (path == nullptr || IsEmpty() || stat(path, &found) != 0) {
        return 0;
    }
    return static_cast<std::int64_t>(found.st_ino) ^ found.st_ctim.tv_nsec ^ (found.st_ctim.tv_sec << 20);
}

/// Reports each change once.
bool WasChanged() {
    static std::int64_t known = DiscNumber();
    const std::int64_t now = DiscNumber();
    const bool changed = now != known && now != 0;
    known = now;
    return changed;
}

int TimedChange(cdrom_timed_media_change_info* info) {
    static std::int64_t changes = 1;
    changes += WasChanged() ? 1 : 0;
    info->media_flags = info->last_media_change < changes ? MEDIA_CHANGED_FLAG : 0;
    info->last_media_change = changes;
    return 0;
}

int ContentsHeader(const FakeDisc& disc, cdrom_tochdr* header) {
    header->cdth_trk0 = 1;
    header->cdth_trk1 = static_cast<std::uint8_t>(disc.tracks.size());
    return 0;
}

int ContentsEntry(const FakeDisc& disc, cdrom_tocentry* entry) {
    const std::size_t index = entry->cdte_track - std::size_t{1};
    const bool isLeadOut = entry->cdte_track == kLeadOutTrack;
    if (!isLeadOut && index >= disc.tracks.size()) {
        return Failed(EINVAL);
    }
    const int sector = isLeadOut ? disc.end : disc.tracks[index].start;
    entry->cdte_adr = 1;
    entry->cdte_ctrl = !isLeadOut && disc.tracks[index].isData ? kDataControl : 0;
    if (entry->cdte_format == CDROM_MSF) {
        const int at = sector + CD_MSF_OFFSET;
        entry->cdte_addr.msf.minute = static_cast<std::uint8_t>(at / CD_FRAMES / CD_SECS);
        entry->cdte_addr.msf.second = static_cast<std::uint8_t>(at / CD_FRAMES % CD_SECS);
        entry->cdte_addr.msf.frame = static_cast<std::uint8_t>(at % CD_FRAMES);
    } else {
        entry->cdte_addr.lba = sector;
    }
    return 0;
}

bool IsData(const FakeDisc& disc, int sector) {
    bool isData = false;
    for (const Track& track : disc.tracks) {
        isData = track.start <= sector ? track.isData : isData;
    }
    return isData;
}

void Delay() {
    const long milliseconds = Number("FAKE_DRIVE_DELAY", 0);
    const timespec time{milliseconds / 1000, milliseconds % 1000 * 1000000};
    nanosleep(&time, nullptr);
}

/// The packs, preceded by their size.
int Titles(const cdrom_generic_command* command) {
    const char* const path = getenv("FAKE_DRIVE_TITLES");
    std::ifstream file(path == nullptr ? "" : path, std::ios::binary);
    const std::string packs{std::istreambuf_iterator<char>(file), {}};
    if (packs.empty()) {
        return Failed(EIO);
    }
    const std::size_t size = packs.size() + 2;
    const std::string answer =
        std::string{static_cast<char>(size >> 8), static_cast<char>(size & 0xFF), 0, 0} + packs;
    memcpy(command->buffer, answer.data(), std::min<std::size_t>(answer.size(), command->buflen));
    return 0;
}

int Packet(const FakeDisc& disc, const cdrom_generic_command* command) {
    const unsigned char* const words = command->cmd;
    if (words[0] == kReadContents && (words[2] & 0x0F) == kCdTextFormat) {
        return Titles(command);
    }
    if (words[0] != kReadCd) {
        return Failed(EINVAL);
    }
    const int first = words[2] << 24 | words[3] << 16 | words[4] << 8 | words[5];
    const int count = words[6] << 16 | words[7] << 8 | words[8];
    const int bad = Number("FAKE_DRIVE_BAD", -1);
    Delay();
    if ((bad >= first && bad < first + count) || IsData(disc, first)) {
        return Failed(EIO);
    }
    const int file = Real<OpenFunction>("open")(disc.sectors.c_str(), O_RDONLY | O_CLOEXEC);
    const ssize_t size = ssize_t{count} * kSectorBytes;
    const ssize_t read =
        pread(file, command->buffer, static_cast<std::size_t>(size), off_t{first} * kSectorBytes);
    close(file);
    return read == size ? 0 : Failed(EIO);
}

int DriveRequest(unsigned long request, void* argument) {
    const FakeDisc disc = ReadDisc();
    switch (request) {
        case CDROM_DRIVE_STATUS:
            return Status();
        case CDROM_DISC_STATUS:
            return DiscStatus(disc);
        case CDROM_MEDIA_CHANGED:
            return WasChanged() ? 1 : 0;
        case CDROM_TIMED_MEDIA_CHANGE:
            return TimedChange(static_cast<cdrom_timed_media_change_info*>(argument));
        case CDROM_GET_CAPABILITY:
            return CDC_PLAY_AUDIO | CDC_MEDIA_CHANGED | CDC_OPEN_TRAY;
        default:
            break;
    }
    if (!disc.isThere) {
        return Failed(ENOMEDIUM);
    }
    switch (request) {
        case CDROMREADTOCHDR:
            return ContentsHeader(disc, static_cast<cdrom_tochdr*>(argument));
        case CDROMREADTOCENTRY:
            return ContentsEntry(disc, static_cast<cdrom_tocentry*>(argument));
        case CDROM_SEND_PACKET:
            return Packet(disc, static_cast<const cdrom_generic_command*>(argument));
        default:
            return Failed(ENOTTY);
    }
}

int OpenThrough(const char* function, const char* path, int flags, mode_t mode) {
    const int descriptor = Real<OpenFunction>(function)(path, flags, mode);
    const char* const node = getenv("FAKE_DRIVE_NODE");
    if (descriptor >= 0 && node != nullptr && strcmp(path, node) == 0) {
        OpenDrives().Add(descriptor);
    }
    return descriptor;
}

}  // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, int));
    va_end(arguments);
    return OpenThrough("open", path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = static_cast<mode_t>(va_arg(arguments, int));
    va_end(arguments);
    return OpenThrough("open64", path, flags, mode);
}

int ioctl(int descriptor, unsigned long request, ...) noexcept {
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (!OpenDrives().Has(descriptor)) {
        return Real<IoctlFunction>("ioctl")(descriptor, request, argument);
    }
    return DriveRequest(request, argument);
}

}  // extern "C"
