// SPDX-License-Identifier: GPL-3.0-or-later
// Disc images: "C" and a cue sheet, "T" and a TOC file, or "N" and the chunks at the end of a single-file
// image. The complete helper program reads them in a child process, because libcdio ends the process on a
// damaged image and can crash on one. Both are allowed; a fault in the helper's own code, or an answer that
// the program would not accept, is not.

#include "discs/test_disc.h"
#include "fuzz/fuzz_check.h"
#include "fuzz/helper_child.h"
#include "platform/disc/cd_answer.h"
#include "support/files.h"

using namespace Qt::StringLiterals;
using namespace tickwell;

namespace {

constexpr int kMostRead = 40;  // sectors

/// A folder with the sound files that the sheets name.
class Bench {
public:
    Bench() : m_disc(MakeDisc({{440, 8}, {660, 5, 2}, {880, 9}})) {
        WriteCueImage(m_disc, m_folder.Path(), u"disc"_s);
        WriteTocImage(m_disc, m_folder.Path(), u"toc"_s);
        m_front = ReadAll(WriteNrgImage(m_disc, m_folder.Path(), u"front"_s))
                      .first((kTestPregap + m_disc.end) * qsizetype{kTestSectorBytes});
    }

    /// Writes the image of an input; returns its path.
    QString Put(const QByteArray& input) const {
        const QByteArray text = input.isEmpty() ? input : input.sliced(1);
        const char kind = input.isEmpty() ? 'C' : input.front();
        QString path = m_folder.File(kind == 'T' ? "toc.toc" : kind == 'N' ? "disc.nrg" : "disc.cue");
        WriteAll(path, kind == 'N' ? m_front + text : text);
        return path;
    }

private:
    QuickFolder m_folder;
    TestDisc m_disc;
    QByteArray m_front;
};

void ReadSound(HelperChild& helper, const QString& path, const media::CdContents& contents) {
    const int end = std::min(contents.leadOut, kMostRead);
    const auto sound = helper.Run(
        {"read", path.toUtf8(), "0", QByteArray::number(end), platform::ContentsText(contents).toUtf8()});
    Require(!sound || sound->size() == end * qsizetype{kTestSectorBytes},
            "every sector has its place in what is read");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Bench bench;
    static HelperChild helper;
    const QString path = bench.Put(InputBytes(data, size));
    const auto answer = helper.Run({"look", path.toUtf8(), "titles"});
    if (!answer) {
        return 0;
    }
    const platform::CdSeen seen = platform::SeenFrom(*answer);
    Require(*answer == "not-ready\n" || seen.status == media::CdStatus::Ready,
            "an answer is one that the program takes");
    if (seen.status == media::CdStatus::Ready) {
        ReadSound(helper, path, seen.contents);
    }
    return 0;
}
