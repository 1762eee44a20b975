// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/anniversary_statements.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

QString Quoted(const QString& text) {
    return u'"' + text + u'"';
}

QString WhereEqual(const days::Anniversary& row) {
    return u"WHERE Name="_s + Quoted(row.name) + u" AND Year=" + QString::number(row.year) + u" AND Month=" +
           QString::number(row.month) + u" AND Day=" + QString::number(row.day) + u" AND Week=" +
           QString::number(row.week);
}

}  // namespace

QString InsertSql(const days::Anniversary& anniversary) {
    return u"INSERT INTO Kinenbi(Name,Year,Month,Day,Week) VALUES ("_s + Quoted(anniversary.name) + u',' +
           QString::number(anniversary.year) + u',' + QString::number(anniversary.month) + u',' +
           QString::number(anniversary.day) + u',' + QString::number(anniversary.week) + u')';
}

QString UpdateSql(const days::Anniversary& from, const days::Anniversary& to) {
    return u"UPDATE Kinenbi SET Name="_s + Quoted(to.name) +  //
           u", Year=" + Quoted(QString::number(to.year)) +    //
           u", Month=" + Quoted(QString::number(to.month)) +  //
           u", Day=" + Quoted(QString::number(to.day)) +      //
           u", Week=" + Quoted(QString::number(to.week)) +    //
           u' ' + WhereEqual(from);
}

QString SelectSql(const days::Anniversary& anniversary) {
    return u"SELECT * FROM Kinenbi "_s + WhereEqual(anniversary);
}

QString DeleteSql(const days::Anniversary& anniversary) {
    return u"DELETE * FROM Kinenbi  "_s + WhereEqual(anniversary);
}

}  // namespace tickwell::book
