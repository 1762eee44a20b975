// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_statements.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

QString Number(qint32 number) {
    return QString::number(number);
}

QString Quoted(const QString& text) {
    return u'"' + text + u'"';
}

QString WhereEqual(const Anniversary& row) {
    return u"WHERE Name="_s + Quoted(row.name) + u" AND Year=" + Number(row.year) + u" AND Month=" +
           Number(row.month) + u" AND Day=" + Number(row.day) + u" AND Week=" + Number(row.week);
}

}  // namespace

QString InsertStatement(const Anniversary& anniversary) {
    return u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ("_s + Quoted(anniversary.name) + u',' +
           Number(anniversary.year) + u',' + Number(anniversary.month) + u',' + Number(anniversary.day) +
           u',' + Number(anniversary.week) + u')';
}

QString UpdateStatement(const Anniversary& from, const Anniversary& to) {
    return u"UPDATE Kinenbi SET Name="_s + Quoted(to.name) +  //
           u", Year=" + Quoted(Number(to.year)) +             //
           u", Month=" + Quoted(Number(to.month)) +           //
           u", Day=" + Quoted(Number(to.day)) +               //
           u", Week=" + Quoted(Number(to.week)) +             //
           u' ' + WhereEqual(from);
}

QString SelectStatement(const Anniversary& anniversary) {
    return u"SELECT * FROM Kinenbi "_s + WhereEqual(anniversary);
}

QString DeleteStatement(const Anniversary& anniversary) {
    return u"DELETE * FROM Kinenbi  "_s + WhereEqual(anniversary);
}

}  // namespace tickwell
