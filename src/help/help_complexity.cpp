// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_complexity.h"

#include <QStringList>
#include <algorithm>

namespace tickwell::help {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMostTags = 20'000;
constexpr int kDeepest = 32;       // open elements
constexpr int kDeepestTables = 4;  // tables within tables
constexpr int kMostCells = 5000;   // rows of all tables times the most columns of one
constexpr int kLargestSpan = 100;  // columns that one cell spans
constexpr int kLongestWord = 10'000;

constexpr char16_t kFirstIdeographic = 0x2E80;  // from here on a line may break after each character

/// Elements without an end tag, or with an optional one: Qt closes them itself.
bool EndsByItself(const QString& name) {
    static const QStringList names{u"area"_s, u"base"_s, u"br"_s,    u"col"_s, u"dd"_s,   u"dt"_s,
                                   u"hr"_s,   u"img"_s,  u"input"_s, u"li"_s,  u"link"_s, u"meta"_s,
                                   u"p"_s,    u"td"_s,   u"th"_s,    u"tr"_s,  u"wbr"_s};
    return names.contains(name);
}

bool HoldsText(const QString& name) {
    static const QStringList names{u"script"_s, u"style"_s, u"textarea"_s, u"title"_s};
    return names.contains(name);
}

/// Scans the tags and sums up what makes layout slow. Overestimates if in doubt.
class Measure {
public:
    explicit Measure(QStringView html) : m_html(html) {}

    bool IsWithinLimits() {
        while (m_at < m_html.size() && m_isWithin) {
            if (m_html.sliced(m_at).startsWith(u"<!--")) {
                const qsizetype end = m_html.indexOf(u"-->", m_at + 4);
                m_at = end < 0 ? m_html.size() : end + 3;
            } else if (m_html[m_at] == u'<') {
                ReadTag();
            } else {
                ReadCharacter();
            }
        }
        return m_isWithin;
    }

private:
    void Allow(bool isAllowed) { m_isWithin = m_isWithin && isAllowed; }

    void ReadCharacter() {
        const QChar character = m_html[m_at++];
        m_word = character.isSpace() || character.unicode() >= kFirstIdeographic ? 0 : m_word + 1;
        Allow(m_word <= kLongestWord);
    }

    void ReadTag() {
        const QStringView tag = m_html.sliced(m_at, TagEnd() - m_at);
        m_at += tag.size();
        const bool isEnd = tag.size() > 1 && tag[1] == u'/';
        const qsizetype begin = isEnd ? 2 : 1;
        qsizetype end = begin;
        while (end < tag.size() && tag[end].isLetterOrNumber()) {
            ++end;
        }
        const QString name = tag.sliced(begin, end - begin).toString().toLower();
        Allow(++m_tags <= kMostTags && !tag.sliced(1).contains(u'<'));
        if (isEnd) {
            Close(name);
        } else if (!name.isEmpty() && !tag.endsWith(u"/>")) {
            Open(name, tag);
        }
    }

    /// The position after the ">" of the tag; one in quotes does not count.
    qsizetype TagEnd() const {
        QChar quote;
        for (qsizetype at = m_at; at < m_html.size(); ++at) {
            const QChar character = m_html[at];
            if (!quote.isNull()) {
                quote = character == quote ? QChar() : quote;
            } else if (character == u'"' || character == u'\'') {
                quote = character;
            } else if (character == u'>') {
                return at + 1;
            }
        }
        return m_html.size();
    }

    void Open(const QString& name, QStringView tag) {
        if (name == u"tr") {
            ++m_rows;
            m_columns = 0;
        } else if (name == u"td" || name == u"th") {
            m_columns += Span(tag);
            m_mostColumns = std::max(m_mostColumns, m_columns);
        }
        Allow(qint64{std::max(m_rows, 1)} * m_mostColumns <= kMostCells);
        if (!EndsByItself(name)) {
            m_open.append(name);
            Allow(m_open.size() <= kDeepest && m_open.count(u"table"_s) <= kDeepestTables);
        }
    }

    /// An end tag also closes the elements inside. Inside a style sheet or a title it is text.
    void Close(const QString& name) {
        const qsizetype at = m_open.lastIndexOf(name);
        const bool isText = !m_open.isEmpty() && HoldsText(m_open.constLast()) && m_open.constLast() != name;
        if (at >= 0 && !isText) {
            m_open.resize(at);
        }
    }

    /// The number of columns that a cell spans. An unreadable number counts as too large.
    int Span(QStringView tag) {
        const qsizetype at = tag.indexOf(u"colspan", 0, Qt::CaseInsensitive);
        if (at < 0) {
            return 1;
        }
        QStringView value = tag.sliced(at + qsizetype{7}).trimmed();
        while (!value.isEmpty() && (value.front() == u'=' || value.front() == u'"' ||
                                    value.front() == u'\'' || value.front().isSpace())) {
            value = value.sliced(1);
        }
        qsizetype digits = 0;
        while (digits < value.size() && value[digits].isDigit()) {
            ++digits;
        }
        bool isNumber = false;
        const int span = value.first(digits).toInt(&isNumber);
        Allow(isNumber && span <= kLargestSpan);
        return std::clamp(span, 1, kLargestSpan);
    }

    QStringView m_html;
    qsizetype m_at = 0;
    bool m_isWithin = true;
    int m_tags = 0;
    QStringList m_open;  // open elements, outermost first
    int m_rows = 0;
    int m_columns = 0;  // of the current row
    int m_mostColumns = 0;
    int m_word = 0;  // length of the current word; most tags do not end it
};

}  // namespace

bool IsEasyToShow(QStringView html) {
    return Measure(html).IsWithinLimits();
}

}  // namespace tickwell::help
