// SPDX-License-Identifier: GPL-3.0-or-later
#include "sync/day_file.h"

#include <QCryptographicHash>
#include <algorithm>
#include <array>
#include <limits>

#include "core/one_line.h"
#include "sync/day_row.h"

namespace tickwell::sync {

using namespace Qt::StringLiterals;

namespace {

constexpr QByteArrayView kTitle("Tickwell days ");
constexpr QByteArrayView kVersion("1");
constexpr QByteArrayView kReplica("replica\t");
constexpr QByteArrayView kComputer("computer\t");
constexpr QByteArrayView kEnd("end\t");
constexpr int kReplicaDigits = 16;
constexpr int kHexadecimal = 16;
constexpr qsizetype kLongestNumber = 20;  // digits
constexpr qsizetype kLongestName = 200;   // characters
constexpr qsizetype kFieldsBeforeRow = 5;

QByteArray ReplicaText(quint64 replica) {
    return QByteArray::number(replica, kHexadecimal).rightJustified(kReplicaDigits, '0');
}

QByteArray ComputerText(const QString& computer) {
    return OnOneLine(computer.left(kLongestName)).toUtf8();
}

QByteArray EndLine(QByteArrayView before, std::size_t count) {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(before);
    return kEnd.toByteArray() + QByteArray::number(static_cast<qulonglong>(count)) + '\t' +
           hash.result().toHex() + '\n';
}

/// Accepts digits without superfluous zeros only.
std::optional<qint64> NumberIn(QByteArrayView text, qint64 most) {
    if (text.size() > kLongestNumber) {
        return std::nullopt;
    }
    bool isNumber = false;
    const qint64 number = text.toByteArray().toLongLong(&isNumber);
    const bool isOurs = isNumber && number >= 0 && number <= most && QByteArray::number(number) == text;
    return isOurs ? std::optional(number) : std::nullopt;
}

std::optional<quint64> ReplicaIn(QByteArrayView text) {
    if (text.size() != kReplicaDigits) {
        return std::nullopt;
    }
    bool isNumber = false;
    const quint64 replica = text.toByteArray().toULongLong(&isNumber, kHexadecimal);
    return isNumber && ReplicaText(replica) == text ? std::optional(replica) : std::nullopt;
}

/// The first line of `rest`, without its end; `rest` then begins after it. nullopt if no line ends.
std::optional<QByteArrayView> TakeLine(QByteArrayView& rest) {
    const qsizetype end = rest.indexOf('\n');
    if (end == -1) {
        return std::nullopt;
    }
    const QByteArrayView line = rest.first(end);
    rest = rest.sliced(end + 1);
    return line;
}

std::optional<Element> ElementIn(QByteArrayView line) {
    std::array<QByteArrayView, kFieldsBeforeRow> fields;
    for (QByteArrayView& field : fields) {
        const qsizetype end = line.indexOf('\t');
        if (end == -1) {
            return std::nullopt;
        }
        field = line.first(end);
        line = line.sliced(end + 1);
    }
    const auto milliseconds = NumberIn(fields[1], kLastMoment);
    const auto counter = NumberIn(fields[2], kMostCounter);
    const auto replica = ReplicaIn(fields[3]);
    const auto copy = NumberIn(fields[4], kMostCopies);
    const bool isPresent = fields[0] == "+";
    if ((!isPresent && fields[0] != "-") || !milliseconds || !counter || !replica || copy.value_or(0) == 0 ||
        !DecodeRow(line)) {
        return std::nullopt;
    }
    return Element{line.toByteArray(),
                   static_cast<quint32>(*copy),
                   {*milliseconds, static_cast<quint32>(*counter), *replica},
                   isPresent};
}

/// Reads the first two lines.
std::optional<quint64> TakeWriter(QByteArrayView& rest) {
    TakeLine(rest);
    const auto line = TakeLine(rest);
    return line && line->startsWith(kReplica) ? ReplicaIn(line->sliced(kReplica.size())) : std::nullopt;
}

/// nullopt for a name that WriteDayFile does not write.
std::optional<QString> TakeComputer(QByteArrayView& rest) {
    const auto line = TakeLine(rest);
    if (!line || !line->startsWith(kComputer)) {
        return std::nullopt;
    }
    const QByteArrayView name = line->sliced(kComputer.size());
    QString computer = QString::fromUtf8(name);
    return ComputerText(computer) == name ? std::optional(std::move(computer)) : std::nullopt;
}

/// None if this is the beginning of a file that this version may be able to read.
DayFileFault FaultOfTitle(QByteArrayView bytes) {
    const QByteArrayView all = bytes;
    const auto title = TakeLine(bytes);
    if (!title && kTitle.startsWith(all)) {
        return DayFileFault::Damaged;  // cut off within its first words
    }
    if (!title || !title->startsWith(kTitle)) {
        return DayFileFault::Foreign;
    }
    const QByteArrayView version = title->sliced(kTitle.size());
    if (version == kVersion) {
        return DayFileFault::None;
    }
    return NumberIn(version, std::numeric_limits<qint32>::max()) ? DayFileFault::Newer
                                                                 : DayFileFault::Foreign;
}

/// Reads the lines of the elements into `state`.
DayFileFault ReadElements(QByteArrayView lines, ReplicaState& state) {
    while (const auto line = TakeLine(lines)) {
        if (state.size() == kMostElements) {
            return DayFileFault::TooMany;
        }
        auto element = ElementIn(*line);
        if (!element || (!state.empty() && !ComesBefore(state.back(), *element))) {
            return DayFileFault::Damaged;
        }
        state.push_back(*std::move(element));
    }
    return DayFileFault::None;
}

}  // namespace

QByteArray WriteDayFile(const DayFile& file) {
    QByteArray bytes = kTitle.toByteArray() + kVersion.toByteArray() + '\n';
    bytes += kReplica.toByteArray() + ReplicaText(file.replica) + '\n';
    bytes += kComputer.toByteArray() + ComputerText(file.computer) + '\n';
    for (const Element& each : file.state) {
        bytes += each.isPresent ? "+\t" : "-\t";
        bytes += QByteArray::number(each.stamp.milliseconds) + '\t';
        bytes += QByteArray::number(each.stamp.counter) + '\t';
        bytes += ReplicaText(each.stamp.replica) + '\t';
        bytes += QByteArray::number(each.copy) + '\t';
        bytes += each.row;
        bytes += '\n';
    }
    bytes += EndLine(bytes, file.state.size());
    return bytes;
}

ReadDayFileResult ReadDayFile(const QByteArray& bytes) {
    if (const DayFileFault fault = FaultOfTitle(bytes); fault != DayFileFault::None) {
        return {fault, {}};
    }
    // The end is checked first: most damaged files have lost it.
    const qsizetype endAt = bytes.lastIndexOf('\n', -2) + 1;
    const QByteArrayView before = QByteArrayView(bytes).first(endAt);
    QByteArrayView rest = before;
    const auto replica = TakeWriter(rest);
    auto computer = TakeComputer(rest);
    const QByteArrayView end = QByteArrayView(bytes).sliced(endAt);
    if (!replica || !computer || !end.startsWith(kEnd)) {
        return {DayFileFault::Damaged, {}};
    }
    DayFile file{*replica, *std::move(computer), {}};
    const auto lines = static_cast<std::size_t>(std::count(rest.begin(), rest.end(), '\n'));
    if (lines > kMostElements) {
        return {DayFileFault::TooMany, {}};
    }
    if (end != EndLine(before, lines)) {
        return {DayFileFault::Damaged, {}};
    }
    file.state.reserve(lines);
    const DayFileFault fault = ReadElements(rest, file.state);
    return fault == DayFileFault::None ? ReadDayFileResult{fault, std::move(file)}
                                       : ReadDayFileResult{fault, {}};
}

std::optional<quint64> WriterOf(const QByteArray& bytes) {
    QByteArrayView rest(bytes);
    return FaultOfTitle(bytes) == DayFileFault::None ? TakeWriter(rest) : std::nullopt;
}

QString ReasonOf(DayFileFault fault) {
    switch (fault) {
        case DayFileFault::None:
            return {};
        case DayFileFault::Foreign:
            return u"このプログラムのファイルではありません。"_s;
        case DayFileFault::Newer:
            return u"新しい版のプログラムのファイルです。"_s;
        case DayFileFault::Damaged:
            return u"途中で切れているか、壊れています。"_s;
        case DayFileFault::TooMany:
            return u"行が多すぎます（%1行まで）。"_s.arg(kMostElements);
    }
    Q_UNREACHABLE();
}

}  // namespace tickwell::sync
