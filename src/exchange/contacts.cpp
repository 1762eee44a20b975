// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/contacts.h"

#include <QRegularExpression>
#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/content_lines.h"
#include "exchange/row_rule.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QByteArrayView, 5> kWanted{"BEGIN", "END", "VERSION", "FN", "BDAY"};
constexpr int kYearForNone = 2000;

/// A contact being read.
struct Contact {
    int line = 0;
    QByteArray version;
    QString name;
    std::optional<ContentLine> birthday;
};

/// The month and day of a birthday: 1990-05-03, 19900503, --05-03, --0503, each also with a time. nullopt for
/// anything else, a date without a month or a day included.
std::optional<QDate> BirthdayIn(const ContentLine& line) {
    static const QRegularExpression form(u"^(?:(\\d{4})-?|--)(\\d{2})-?(\\d{2})(?:[T ][0-9:.,Z+-]*)?$"_s);
    const QRegularExpressionMatch match = form.match(QString::fromUtf8(line.value).trimmed());
    if (!match.hasMatch() || ParameterOf(line, "VALUE") == "TEXT") {
        return std::nullopt;
    }
    const int year = match.captured(1).isEmpty() ? kYearForNone : match.captured(1).toInt();
    const QDate date(year, match.captured(2).toInt(), match.captured(3).toInt());
    return date.isValid() ? std::optional(date) : std::nullopt;
}

Entry EntryOfContact(const Contact& contact) {
    const QString name = contact.name + u"の誕生日";
    const QString written = QString::fromUtf8(contact.birthday->value);
    if (contact.version != "3.0" && contact.version != "4.0") {
        return RefusedEntry(name, written, u"vCard 3.0か4.0ではない連絡先"_s);
    }
    if (contact.name.trimmed().isEmpty()) {
        return RefusedEntry(name, written, u"名前のない連絡先"_s);
    }
    const std::optional<QDate> day = BirthdayIn(*contact.birthday);
    if (!day) {
        return RefusedEntry(name, written, u"月日が読めない誕生日"_s);
    }
    return EntryOf(name, {.name = {}, .year = 0, .month = day->month(), .day = day->day(), .week = 0});
}

/// Follows the contacts of a file.
class Reading {
public:
    explicit Reading(Offer& offer) : m_offer(offer) {}

    void Take(const ContentLine& line);
    void End(int line) const;

private:
    void Begin(const ContentLine& line);

    Offer& m_offer;
    std::optional<Contact> m_contact;
    bool m_isFirst = true;
};

void Reading::Begin(const ContentLine& line) {
    if (m_contact) {
        throw RunTimeError(u"%1行目の連絡先が終わっていません。"_s.arg(m_contact->line));
    }
    m_contact = Contact{.line = line.number, .version = {}, .name = {}, .birthday = std::nullopt};
}

void Reading::Take(const ContentLine& line) {
    const bool isCard = line.value.trimmed().compare("VCARD", Qt::CaseInsensitive) == 0;
    if (std::exchange(m_isFirst, false) && (line.name != "BEGIN" || !isCard)) {
        throw RunTimeError(u"vCardのファイルではありません。"_s);
    }
    if (line.name == "BEGIN" && isCard) {
        Begin(line);
    } else if (!m_contact) {
        return;
    } else if (line.name == "VERSION") {
        m_contact->version = line.value.trimmed();
    } else if (line.name == "FN" && m_contact->name.isEmpty()) {
        m_contact->name = UnescapedText(line.value);
    } else if (line.name == "BDAY" && !line.value.trimmed().isEmpty()) {
        m_contact->birthday = line;
    } else if (line.name == "END" && isCard) {
        if (m_contact->birthday) {
            m_offer.entries.push_back(EntryOfContact(*m_contact));
        } else {
            ++m_offer.others;
        }
        m_contact.reset();
    }
}

void Reading::End(int line) const {
    if (m_isFirst) {
        throw RunTimeError(u"vCardのファイルではありません。"_s);
    }
    if (m_contact) {
        throw RunTimeError(u"ファイルが途中で終わっています（%1行目の連絡先）。"_s.arg(line));
    }
}

}  // namespace

Offer ReadContacts(const QByteArray& file, const std::atomic<bool>& isGivenUp) {
    ContentLines lines(file, [](const QByteArray& name) {
        return std::find(kWanted.begin(), kWanted.end(), QByteArrayView(name)) != kWanted.end();
    });
    Offer offer;
    Reading reading(offer);
    int last = 0;
    while (!isGivenUp) {
        const std::optional<ContentLine> line = lines.Next();
        if (!line) {
            reading.End(last);
            break;
        }
        last = line->number;
        reading.Take(*line);
    }
    return offer;
}

}  // namespace tickwell::exchange
