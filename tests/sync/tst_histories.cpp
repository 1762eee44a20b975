// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTest>

#include "support/random_count.h"
#include "sync/history.h"

using namespace tickwell;
using namespace tickwell::sync;

namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int kHistories = 2'000;  // each takes ten times as long
#else
constexpr int kHistories = 10'000;
#endif

}  // namespace

/// Three computers, many days, and everything that can happen to their files, clocks and programs.
class TstHistories : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void OnceAllFilesWereSeenAllBooksAreEqualAndNoRowIsLost();
};

void TstHistories::OnceAllFilesWereSeenAllBooksAreEqualAndNoRowIsLost() {
    const int count = RandomCount(kHistories);
    for (int seed = 1; seed <= count; ++seed) {
        const QString fault = History(static_cast<unsigned>(seed)).Run();
        QVERIFY2(fault.isEmpty(), qPrintable(fault));
    }
    constexpr std::size_t kKinds = 19;
    QCOMPARE(History::Happenings().size(), kKinds);
    for (const auto& [what, often] : History::Happenings()) {
        qInfo("%7d %s", often, qPrintable(what));
        QVERIFY2(often > 0, qPrintable(what));
    }
}

QTEST_APPLESS_MAIN(TstHistories)
#include "tst_histories.moc"
