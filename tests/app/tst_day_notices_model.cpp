// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMap>
#include <QSet>
#include <QTest>
#include <random>
#include <utility>

#include "app/day_notices_bench.h"
#include "support/random_count.h"

using namespace tickwell;
using namespace tickwell::app;
using namespace Qt::StringLiterals;

namespace {

constexpr int kCombinations = 2000;
constexpr int kSteps = 8;
constexpr qint64 kSecond = 1000;  // ms
constexpr qint64 kHour = 3600 * kSecond;

struct Row {
    QString name;
    int year;   // the year in brackets; 0 for none
    int month;  // 0: every month
    int day;    // 0: on the weekday of the code
    int code;
};

/// Days off by law around the year's end of 2026, from the almanac.
const QMap<QDate, QString>& Law() {
    static const QMap<QDate, QString> law{
        {{2026, 10, 12}, u"スポーツの日"_s}, {{2026, 11, 3}, u"文化の日"_s},
        {{2026, 11, 23}, u"勤労感謝の日"_s}, {{2027, 1, 1}, u"元日"_s},
        {{2027, 1, 11}, u"成人の日"_s},      {{2027, 2, 11}, u"建国記念の日"_s},
        {{2027, 2, 23}, u"天皇誕生日"_s}};
    return law;
}

/// What should be told, computed day by day without the program's rules.
class Model {
public:
    QList<Row> rows;
    QMap<std::pair<int, int>, QString> table;  // days off by month and day
    bool byLaw = false;
    bool ownWeekdays = false;  // the correction of weekday anniversaries
    NoticeSettings settings;
    QSet<QString> told;

    QStringList NamesOn(QDate day, bool counted) const {
        int nth = 0;
        for (QDate each(day.year(), day.month(), 1); each <= day; each = each.addDays(1)) {
            nth += each.dayOfWeek() == day.dayOfWeek() ? 1 : 0;
        }
        const int weekday = day.dayOfWeek() == Qt::Sunday ? 1 : day.dayOfWeek() + 1;
        const int code = ownWeekdays ? nth * 10 + weekday : weekday * 10 + nth;
        QStringList plain;
        QStringList names;
        const auto add = [&](const QString& stored, const QString& shown) {
            if (!plain.contains(stored)) {
                plain.append(stored);
                names.append(shown);
            }
        };
        for (const Row& row : rows) {
            const bool falls = (row.day != 0 ? row.day == day.day() : row.code == code) &&
                               (row.month == 0 || row.month == day.month());
            const QString stored = row.year == 0 ? row.name : u"%1(%2)"_s.arg(row.name).arg(row.year);
            if (falls && row.year != 0 && counted && row.year < day.year()) {
                add(stored, u"%1（%2周年）"_s.arg(row.name).arg(day.year() - row.year));
            } else if (falls) {
                add(stored, stored);
            }
        }
        const QString off = byLaw ? Law().value(day) : table.value({day.month(), day.day()});
        if (!off.isEmpty()) {
            add(off, off);
        }
        return names;
    }

    /// The notices that a look at `now` shows.
    QStringList Look(const QDateTime& now) {
        QStringList shown;
        if (!settings.tellsDays || now.time().msecsSinceStartOfDay() < settings.time * (60 * kSecond)) {
            return shown;
        }
        const QMap<int, QString> words{{0, u"今日"_s}, {1, u"明日"_s}, {3, u"3日後"_s}, {7, u"7日後"_s}};
        for (auto word = words.begin(); word != words.end(); ++word) {
            const QDate day = now.date().addDays(word.key());
            const QString key = day.toString(u"yyyyMMdd") + u'+' + QString::number(word.key());
            const QStringList names = NamesOn(day, settings.counts);
            if (!settings.daysAhead.contains(word.key()) || told.contains(key) || names.isEmpty()) {
                continue;
            }
            told.insert(key);
            shown.append(word.value() + u' ' + day.toString(u"M月d日(") +
                         u"月火水木金土日"_s.at(day.dayOfWeek() - 1) + u")は" + Listed(names));
        }
        return shown;
    }

private:
    static QString Listed(const QStringList& names) {
        if (names.size() == 1) {
            const qsizetype years = names[0].endsWith(u"周年）") ? names[0].lastIndexOf(u'（') : -1;
            const QString rest = years < 0 ? QString() : names[0].mid(years);
            return u"「%1」です%2"_s.arg(years < 0 ? names[0] : names[0].left(years), rest);
        }
        const QString more = names.size() > 3 ? u"ほか%1件"_s.arg(names.size() - 3) : QString();
        return u"「%1」%2です"_s.arg(names.mid(0, 3).join(u"」「"_s), more);
    }
};

/// A program, its model, and what happens to both.
class Trial {
public:
    Trial() {  // nothing has to survive a power cut
        m_raw.Run("PRAGMA synchronous=OFF");
        m_raw.Run("PRAGMA journal_mode=MEMORY");
    }

    /// Other rows, other settings, another time, and nothing told.
    void Renew(unsigned seed) {
        m_random.seed(seed);
        m_raw.Run("DELETE FROM Kinenbi");
        m_raw.Run("DELETE FROM Syukuzitu");
        m_bench.program.reset();
        m_bench.store.Put(u"Notices"_s, u"Told"_s, QString());
        m_model = Model();
        m_model.settings = {.tellsDays = true};
        ChangeSettings();
        for (int row = Pick(16); row > 0; --row) {
            AddRow();
        }
        for (int day = Pick(8); day > 0; --day) {
            AddDayOff();
        }
        m_bench.time.SetNow(QDateTime(QDate(2026, 11, 7), QTime(0, 0)).addSecs(Pick(65 * 24 * 60) * 60LL));
        Restart();
    }

    void Step() {
        switch (Pick(9)) {
            case 0:
                return Restart();
            case 1:
                return AddRow();
            case 2:
                return Suspend();
            case 3:
                return SetBack();
            case 4:
                ChangeSettings();
                m_bench.program->Follow();
                return Look(m_bench.time.Now());
            default:
                return Pass(1 + Pick(20 * 3600) * kSecond);
        }
    }

    QStringList Shown() { return m_bench.notices.Take(); }
    QStringList Expected() { return std::exchange(m_expected, {}); }

private:
    int Pick(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    void Look(const QDateTime& now) { m_expected += m_model.Look(now); }

    void Restart() {
        m_bench.Start();
        Look(m_bench.time.Now());
    }
    void Suspend() {
        m_bench.time.Suspend(Pick(60 * 3600) * kSecond);
        Look(m_bench.time.Now());
    }
    void SetBack() {
        m_bench.time.SetNow(m_bench.time.Now().addSecs(-Pick(48 * 3600)));
        Look(m_bench.time.Now());
    }
    /// At most one time of notices is reached.
    void Pass(qint64 milliseconds) {
        const QDateTime from = m_bench.time.Now();
        m_bench.time.Advance(milliseconds);
        const QDateTime to = m_bench.time.Now();
        for (const QDate& day : {from.date(), to.date()}) {
            const QDateTime due(day, QTime(0, 0).addSecs(m_model.settings.time * 60));
            if (from < due && due <= to) {
                return Look(due);
            }
        }
    }
    void ChangeSettings() {
        m_model.settings.daysAhead.clear();
        for (const int ahead : {0, 1, 3, 7}) {
            if (Pick(3) != 0) {
                m_model.settings.daysAhead.append(ahead);
            }
        }
        m_model.settings.time = Pick(3) == 0 ? 540 : Pick(24 * 60);
        m_model.settings.counts = Pick(2) == 0;
        m_model.byLaw = Pick(2) == 0;
        m_model.ownWeekdays = Pick(2) == 0;
        m_bench.further.notices = m_model.settings;
        m_bench.further.calendar.holidaysByLaw = m_model.byLaw;
        m_bench.further.corrections.weekdayAnniversaries = m_model.ownWeekdays;
    }
    void AddRow() {
        Row row{.name = u"記念日"_s + QChar(u'ア' + Pick(5)), .year = 0, .month = 0, .day = 0, .code = 0};
        row.year = Pick(2) == 0 ? 1990 + Pick(39) : 0;
        row.month = Pick(2) == 0 ? 0 : 10 + Pick(3);
        if (Pick(4) == 0) {
            row.code = 10 * (1 + Pick(5)) + 1 + Pick(5);
        } else {
            row.day = 1 + Pick(31);
        }
        m_model.rows.append(row);
        const QString stored = row.year == 0 ? row.name : u"%1(%2)"_s.arg(row.name).arg(row.year);
        m_raw.Run(u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ('%1',0,%2,%3,%4)"_s.arg(stored)
                      .arg(row.month)
                      .arg(row.day)
                      .arg(row.code)
                      .toUtf8());
    }
    void AddDayOff() {
        const std::pair day{10 + Pick(3), 1 + Pick(30)};
        if (m_model.table.contains(day)) {
            return;
        }
        const QString name = u"祝日%1"_s.arg(m_model.table.size());
        m_model.table.insert(day, name);
        m_raw.Run(u"INSERT INTO Syukuzitu(Name,Month,Day) VALUES ('%1',%2,%3)"_s.arg(name)
                      .arg(day.first)
                      .arg(day.second)
                      .toUtf8());
    }

    std::mt19937 m_random;
    DayNoticesBench m_bench;
    store::RawConnection m_raw{m_bench.dayStore.Path()};
    Model m_model;
    QStringList m_expected;
};

}  // namespace

/// The notices of days, compared with a model that shares nothing with the program.
class TstDayNoticesModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void TheyAreThoseOfTheModel();
};

void TstDayNoticesModel::TheyAreThoseOfTheModel() {
    qsizetype told = 0;
    const int trials = RandomCount(kCombinations);
    Trial trial;
    for (int seed = 0; seed < trials; ++seed) {
        trial.Renew(static_cast<unsigned>(seed));
        for (int step = 0; step < kSteps; ++step) {
            trial.Step();
            const QStringList expected = trial.Expected();
            told += expected.size();
            const QStringList shown = trial.Shown();
            if (shown != expected) {
                qWarning().noquote() << "seed" << seed << "step" << step;
            }
            QCOMPARE(shown, expected);
        }
    }
    qInfo().noquote() << trials << "combinations," << trials * kSteps << "events," << told << "notices";
    QVERIFY(told > trials);
}

QTEST_MAIN(TstDayNoticesModel)
#include "tst_day_notices_model.moc"
