// SPDX-License-Identifier: GPL-3.0-or-later
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include "core/errors.h"
#include "store/day_database.h"
#include "store/jet/jet_import.h"
#include "store/jet_samples.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::store;
using namespace Qt::StringLiterals;

namespace {

constexpr int kVariants = 4000;
constexpr qint64 kLongest = 20000;  // ms; an undamaged file of this size takes a few, even under sanitizers

using Random = QRandomGenerator;

qsizetype PageSize(const QByteArray& file) {
    return file.at(0x14) == 0 ? 2048 : 4096;
}

qsizetype AnyPage(const QByteArray& file, Random& random) {
    return random.bounded(static_cast<int>(file.size() / PageSize(file))) * PageSize(file);
}

QByteArray RandomBytes(qsizetype length, Random& random) {
    QByteArray bytes(length, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random.bounded(256));
    }
    return bytes;
}

QByteArray WithFlippedBits(QByteArray file, Random& random) {
    for (int i = random.bounded(1, 65); i > 0; --i) {
        const int at = random.bounded(static_cast<int>(file.size()));
        file[at] = static_cast<char>(file.at(at) ^ (1 << random.bounded(8)));
    }
    return file;
}

/// Flips bytes near page boundaries, where definitions, maps and rows begin and end and a change is most
/// likely to matter.
QByteArray WithFlippedEdges(QByteArray file, Random& random) {
    for (int i = random.bounded(1, 17); i > 0; --i) {
        const int within = random.bounded(160);
        const qsizetype page = AnyPage(file, random);
        const qsizetype at = page + (random.bounded(2) == 0 ? within : PageSize(file) - 1 - within);
        file[at] = static_cast<char>(random.bounded(256));
    }
    return file;
}

QByteArray Truncated(const QByteArray& file, Random& random) {
    const qsizetype length = random.bounded(static_cast<int>(file.size()));
    return file.first(random.bounded(2) == 0 ? length : length / PageSize(file) * PageSize(file));
}

QByteArray WithZeroedPages(QByteArray file, Random& random) {
    for (int i = random.bounded(1, 5); i > 0; --i) {
        file.replace(AnyPage(file, random), PageSize(file), QByteArray(PageSize(file), '\0'));
    }
    return file;
}

QByteArray WithRandomPages(QByteArray file, Random& random) {
    for (int i = random.bounded(1, 5); i > 0; --i) {
        const qsizetype at = AnyPage(file, random);
        const qsizetype kept =
            random.bounded(2) == 0 ? 0 : 8;  // keeping the type of page and its owner, or not
        file.replace(at + kept, PageSize(file) - kept, RandomBytes(PageSize(file) - kept, random));
    }
    return file;
}

QByteArray WithSwappedPages(QByteArray file, Random& random) {
    const qsizetype first = AnyPage(file, random);
    const qsizetype second = AnyPage(file, random);
    const QByteArray kept = file.mid(first, PageSize(file));
    file.replace(first, PageSize(file), file.mid(second, PageSize(file)));
    return file.replace(second, PageSize(file), kept);
}

QByteArray Damaged(const QByteArray& file, Random& random) {
    switch (random.bounded(6)) {
        case 0:
            return WithFlippedBits(file, random);
        case 1:
            return WithFlippedEdges(file, random);
        case 2:
            return Truncated(file, random);
        case 3:
            return WithZeroedPages(file, random);
        case 4:
            return WithRandomPages(file, random);
        default:
            return WithSwappedPages(file, random);
    }
}

}  // namespace

/// Damaged files: the import either reads them completely or refuses them.
class TstJetDamage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ADamagedFileIsReadCompletelyOrRefused();
    void AFileTruncatedAnywhereIsRefused_data();
    void AFileTruncatedAnywhereIsRefused();
};

void TstJetDamage::ADamagedFileIsReadCompletelyOrRefused() {
    const quint32 seed = Random::global()->generate();
    qInfo("seed %u", seed);
    Random random(seed);
    QList<QByteArray> samples;
    for (const auto& name :
         {u"jet3_full"_s, u"jet3_encrypted"_s, u"jet3_reference_maps"_s, u"jet3_wide"_s, u"jet3_lengths"_s,
          u"jet4_full"_s, u"jet4_full_2003"_s, u"jet4_deleted"_s, u"jet4_extra"_s, u"jet4_nulls"_s}) {
        samples.append(JetSample(name + u".mdb"));
    }
    int refused = 0;
    for (int i = 0; i < kVariants; ++i) {
        const QByteArray file = Damaged(samples.at(i % samples.size()), random);
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"DayDate.mdb"_s);
        WriteAll(path, file);
        QElapsedTimer timer;
        timer.start();
        try {
            if (const auto summary = ImportJetFile(path)) {
                QVERIFY(DayDatabase(path).IsOpen());
                QCOMPARE(ReadAll(folder.filePath(summary->keptAs)), file);
            } else {
                QVERIFY2(KindOfFile(file) == JetFileKind::Other, qPrintable(QString::number(i)));
                QCOMPARE(ReadAll(path), file);
            }
        } catch (const RunTimeError& error) {
            ++refused;
            QVERIFY(error.Reason().startsWith(path + u"\r\n"));
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
                     QStringList(u"DayDate.mdb"_s));
            QCOMPARE(ReadAll(path), file);
        }
        QVERIFY2(timer.elapsed() < kLongest, qPrintable(QString::number(i)));
    }
    qInfo("%d of %d refused", refused, kVariants);
    QVERIFY(refused > kVariants / 4);
}

void TstJetDamage::AFileTruncatedAnywhereIsRefused_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("Jet 3") << JetSample(u"jet3_full.mdb"_s);
    QTest::newRow("Jet 4") << JetSample(u"jet4_full.mdb"_s);
}

void TstJetDamage::AFileTruncatedAnywhereIsRefused() {
    QFETCH(QByteArray, file);
    for (qsizetype length = 0; length < file.size(); length += length < 128 ? 1 : 509) {
        QVERIFY2(!Refusal(file.first(length)).isEmpty(), qPrintable(QString::number(length)));
    }
    // Also truncated at page ends: the last pages are rows of the last table.
    for (qsizetype length = 0; length < file.size(); length += PageSize(file)) {
        QVERIFY2(!Refusal(file.first(length)).isEmpty(), qPrintable(QString::number(length)));
    }
}

QTEST_GUILESS_MAIN(TstJetDamage)
#include "tst_jet_damage.moc"
