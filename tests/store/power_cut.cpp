// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/power_cut.h"

#include <QRandomGenerator>
#include <algorithm>

namespace tickwell::store {

namespace {

constexpr quint32 kSeed = 0x0FF;
constexpr qsizetype kSector = 512;  // bytes that a disk writes atomically

/// How much of a step has reached the disk.
enum class Share { None, Half, Whole };

void Write(QByteArray& file, qint64 at, const QByteArray& bytes) {
    if (file.size() < at + bytes.size()) {
        file.resize(at + bytes.size(), '\0');
    }
    file.replace(at, bytes.size(), bytes);
}

/// Whether `sync` makes `step` durable: a file's contents if it syncs that file, directory entries if it
/// syncs the folder.
bool Secures(const DiskStep& sync, const DiskStep& step) {
    const bool isName = step.kind == DiskStep::Kind::Create || step.kind == DiskStep::Kind::Remove;
    if (isName) {
        return sync.isFolder;
    }
    return sync.kind == DiskStep::Kind::Sync && sync.path == step.path;
}

/// The contents of the disk after some steps. A file that was removed and created again is a different file.
class Disk {
public:
    explicit Disk(const DiskState& before) : m_files(before) {}

    /// `making`: the number of times that a file of this path has been created, this step included.
    void Do(const DiskStep& step, int making, Share share) {
        auto file = m_files.find(step.path);
        if (file != m_files.end() && m_makings.value(step.path) != making) {
            file = m_files.end();
        }
        switch (step.kind) {
            case DiskStep::Kind::Create:
                m_files.insert(step.path, {});
                m_makings.insert(step.path, making);
                break;
            case DiskStep::Kind::Remove:
                if (file != m_files.end()) {
                    m_files.erase(file);
                }
                break;
            case DiskStep::Kind::Write:
                if (file != m_files.end()) {
                    Write(*file, step.at, share == Share::Half ? FirstHalf(step.bytes) : step.bytes);
                }
                break;
            case DiskStep::Kind::Truncate:
                if (file != m_files.end()) {
                    file->resize(step.at, '\0');
                }
                break;
            case DiskStep::Kind::Sync:
            case DiskStep::Kind::Mark:
                break;
        }
    }

    const DiskState& State() const { return m_files; }

private:
    /// Whole sectors only; a single sector is written completely.
    static QByteArray FirstHalf(const QByteArray& bytes) {
        const qsizetype half = bytes.size() / 2 / kSector * kSector;
        return half > 0 ? bytes.first(half) : bytes;
    }

    DiskState m_files;
    QMap<QString, int> m_makings;  // by path: which creation the file comes from; 0 initially
};

class PowerCuts {
public:
    PowerCuts(const DiskState& before, const std::vector<DiskStep>& steps,
              std::function<void(const DiskState&, int)> see)
        : m_before(before), m_steps(steps), m_see(std::move(see)) {}

    void KeptOrder() {
        for (std::size_t cut = 0; cut <= m_steps.size(); ++cut) {
            std::size_t synced = cut;
            while (synced > 0 && !IsBarrier(m_steps[synced - 1])) {
                --synced;
            }
            for (std::size_t reached = synced; reached <= cut; ++reached) {
                See(cut, [&](std::size_t step) { return step < reached ? Share::Whole : Share::None; });
            }
        }
    }

    void LooseOrder(int random) {
        QRandomGenerator generator(kSeed);
        for (std::size_t cut = 0; cut <= m_steps.size(); ++cut) {
            const std::vector<std::size_t> open = OpenSteps(cut);
            const auto with = [&](const std::function<Share(std::size_t)>& share) {
                See(cut, [&](std::size_t step) {
                    return std::binary_search(open.begin(), open.end(), step) ? share(step) : Share::Whole;
                });
            };
            with([](std::size_t) { return Share::None; });
            with([](std::size_t) { return Share::Whole; });
            for (const std::size_t one : open) {
                with([&](std::size_t step) { return step == one ? Share::Whole : Share::None; });
                with([&](std::size_t step) { return step == one ? Share::None : Share::Whole; });
                with([&](std::size_t step) { return step == one ? Share::Half : Share::Whole; });
            }
            for (int i = 0; i < random && open.size() > 2; ++i) {
                with([&](std::size_t) { return static_cast<Share>(generator.bounded(3)); });
            }
        }
    }

private:
    static bool IsBarrier(const DiskStep& step) {
        return step.kind == DiskStep::Kind::Sync || (step.kind == DiskStep::Kind::Remove && step.isFolder);
    }

    /// The steps before `cut` that are possibly not on the disk yet, in ascending order.
    std::vector<std::size_t> OpenSteps(std::size_t cut) const {
        std::vector<std::size_t> open;
        for (std::size_t step = 0; step < cut; ++step) {
            const auto secures = [&](const DiskStep& later) { return Secures(later, m_steps[step]); };
            const auto from = m_steps.begin() + static_cast<std::ptrdiff_t>(step);
            const auto to = m_steps.begin() + static_cast<std::ptrdiff_t>(cut);
            if (m_steps[step].kind != DiskStep::Kind::Mark && std::none_of(from, to, secures)) {
                open.push_back(step);
            }
        }
        return open;
    }

    void See(std::size_t cut, const std::function<Share(std::size_t)>& share) {
        Disk disk(m_before);
        QMap<QString, int> makings;
        int mark = 0;
        for (std::size_t step = 0; step < cut; ++step) {
            const DiskStep& now = m_steps[step];
            makings[now.path] += now.kind == DiskStep::Kind::Create ? 1 : 0;
            const Share reached = share(step);
            if (now.kind == DiskStep::Kind::Mark) {
                mark = static_cast<int>(now.at);
            } else if (reached != Share::None) {
                disk.Do(now, makings[now.path], reached);
            }
        }
        m_see(disk.State(), mark);
    }

    const DiskState& m_before;
    const std::vector<DiskStep>& m_steps;
    std::function<void(const DiskState&, int)> m_see;
};

}  // namespace

void ForEachPowerCut(const DiskState& before, const std::vector<DiskStep>& steps, DiskOrder order, int random,
                     const std::function<void(const DiskState& state, int mark)>& see) {
    PowerCuts cuts(before, steps, see);
    if (order == DiskOrder::Kept) {
        cuts.KeptOrder();
    } else {
        cuts.LooseOrder(random);
    }
}

}  // namespace tickwell::store
