// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTemporaryDir>
#include <QTest>

#include "platform/power/power_supplies.h"
#include "support/files.h"

using namespace tickwell;
using namespace tickwell::platform;
using namespace Qt::StringLiterals;

namespace {

/// The kernel's files: for each supply its file names and their contents.
using Supply = QMap<QString, QByteArray>;
using Supplies = QMap<QString, Supply>;

Supply MainsSupply(const QByteArray& online) {
    return {{u"type"_s, "Mains\n"_ba}, {u"online"_s, online}};
}

/// A battery of 50 Wh with this charge, which is being discharged at 20 W.
Supply BatterySupply(const QByteArray& wattHours) {
    return {{u"type"_s, "Battery\n"_ba},
            {u"present"_s, "1\n"_ba},
            {u"energy_now"_s, wattHours + "000000\n"},
            {u"energy_full"_s, "50000000\n"_ba},
            {u"power_now"_s, "20000000\n"_ba}};
}

Supply With(Supply supply, const QString& name, const QByteArray& text) {
    supply.insert(name, text);
    return supply;
}

const PowerReading kOnMains{Mains::On, std::nullopt, std::nullopt};
const PowerReading kUnknown{};

}  // namespace

/// The battery state from the kernel's files.
class TstPowerSupplies : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void SuppliesAreRead_data();
    void SuppliesAreRead();
    void AFolderThatIsNotThereIsUnknown();
};

void TstPowerSupplies::SuppliesAreRead_data() {
    QTest::addColumn<Supplies>("supplies");
    QTest::addColumn<PowerReading>("reading");
    const auto row = [](const char* name, const Supplies& supplies, const PowerReading& reading) {
        QTest::newRow(name) << supplies << reading;
    };
    const Supply capacityAlone{{u"type"_s, "Battery"_ba}, {u"capacity"_s, "33"_ba}};
    const Supply inAmpereHours{{u"type"_s, "Battery"_ba},
                               {u"charge_now"_s, "1500000"_ba},
                               {u"charge_full"_s, "3000000"_ba},
                               {u"current_now"_s, "1000000"_ba}};
    row("nothing is there", {}, kUnknown);
    row("a machine on mains without a battery", {{u"AC"_s, MainsSupply("1\n")}}, kOnMains);
    row("a battery that is being charged", {{u"AC"_s, MainsSupply("1\n")}, {u"BAT0"_s, BatterySupply("40")}},
        kOnMains);
    // 40 of 50 Wh; at 20 W they last two hours.
    row("on battery", {{u"AC"_s, MainsSupply("0\n")}, {u"BAT0"_s, BatterySupply("40")}},
        {Mains::Off, 80, 7200});
    row("a battery without mains", {{u"BAT0"_s, BatterySupply("40")}}, {Mains::Off, 80, 7200});
    // 60 of 100 Wh; 60 Wh at 40 W.
    row("two batteries are one", {{u"BAT0"_s, BatterySupply("40")}, {u"BAT1"_s, BatterySupply("20")}},
        {Mains::Off, 60, 5400});
    row("in ampere hours", {{u"BAT0"_s, inAmpereHours}}, {Mains::Off, 50, 5400});
    row("a percentage and nothing else", {{u"BAT0"_s, capacityAlone}}, {Mains::Off, 33, std::nullopt});
    row("no rate, no time", {{u"BAT0"_s, With(BatterySupply("40"), u"power_now"_s, "0")}},
        {Mains::Off, 80, std::nullopt});
    row("a battery that holds more than its full charge", {{u"BAT0"_s, BatterySupply("51")}},
        {Mains::Off, 100, 9180});
    row("a charge beyond any battery", {{u"BAT0"_s, BatterySupply("9000000000000")}}, kUnknown);
    row("a negative charge", {{u"BAT0"_s, BatterySupply("-40")}}, kUnknown);
    row("a rate that would last for months", {{u"BAT0"_s, With(BatterySupply("40"), u"power_now"_s, "1")}},
        {Mains::Off, 80, std::nullopt});
    row("an empty battery", {{u"BAT0"_s, With(BatterySupply("0"), u"energy_now"_s, "0")}},
        {Mains::Off, 0, std::nullopt});
    row("a percentage above a hundred", {{u"BAT0"_s, With(capacityAlone, u"capacity"_s, "250")}}, kUnknown);
    row("percentages are truncated", {{u"BAT0"_s, With(capacityAlone, u"capacity"_s, "100")}},
        {Mains::Off, 100, std::nullopt});
    row("a mouse's battery is not ours", {{u"hid"_s, With(BatterySupply("40"), u"scope"_s, "Device\n")}},
        kUnknown);
    row("a bay without a battery", {{u"BAT0"_s, With(BatterySupply("40"), u"present"_s, "0\n")}}, kUnknown);
    row("charged through USB",
        {{u"ucsi"_s, {{u"type"_s, "USB"_ba}, {u"online"_s, "1"_ba}}}, {u"BAT0"_s, BatterySupply("40")}},
        kOnMains);
    row("files that hold no numbers",
        {{u"BAT0"_s, {{u"type"_s, "Battery"_ba}, {u"energy_now"_s, "x"_ba}, {u"energy_full"_s, "y"_ba}}}},
        kUnknown);
}

void TstPowerSupplies::SuppliesAreRead() {
    QFETCH(Supplies, supplies);
    QFETCH(PowerReading, reading);
    const QTemporaryDir dir;
    for (auto supply = supplies.begin(); supply != supplies.end(); ++supply) {
        QVERIFY(QDir(dir.path()).mkdir(supply.key()));
        for (auto file = supply->begin(); file != supply->end(); ++file) {
            WriteAll(dir.filePath(supply.key() + u'/' + file.key()), file.value());
        }
    }
    QVERIFY(PowerSupplies(dir.path()).Read() == reading);
}

void TstPowerSupplies::AFolderThatIsNotThereIsUnknown() {
    QVERIFY(PowerSupplies(u"/no/such/folder"_s).Read() == kUnknown);
}

QTEST_GUILESS_MAIN(TstPowerSupplies)
#include "tst_power_supplies.moc"
