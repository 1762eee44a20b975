// SPDX-License-Identifier: GPL-3.0-or-later
#include <QStringList>

#include "fuzz/sql_model.h"

namespace tickwell {

using namespace Qt::StringLiterals;

namespace {

QString Text(const store::SqlLiteral& literal) {
    if (const auto* number = std::get_if<qint32>(&literal)) {
        return QString::number(*number);
    }
    if (const auto* text = std::get_if<QString>(&literal)) {
        return u'"' + *text + u'"';
    }
    const QDate date = std::get<QDate>(literal);
    return u"#%1/%2/%3#"_s.arg(date.month()).arg(date.day()).arg(date.year(), 4, 10, QChar(u'0'));
}

QString Text(store::SqlOperator op) {
    switch (op) {
        case store::SqlOperator::Equal:
            return u"="_s;
        case store::SqlOperator::NotEqual:
            return u"<>"_s;
        case store::SqlOperator::LessOrEqual:
            return u"<="_s;
        case store::SqlOperator::GreaterOrEqual:
            return u">="_s;
        case store::SqlOperator::Less:
            return u"<"_s;
        case store::SqlOperator::Greater:
            return u">"_s;
    }
    return {};
}

QString Text(const store::Condition& condition);

QString Joined(const std::vector<store::Condition>& parts, const QString& word, bool brackets) {
    QStringList texts;
    for (const store::Condition& part : parts) {
        const bool isJoined =
            std::holds_alternative<store::AnyOf>(part) || std::holds_alternative<store::AllOf>(part);
        const bool isBracketed = isJoined && (brackets || std::holds_alternative<store::AnyOf>(part));
        texts.append(isBracketed ? u'(' + Text(part) + u')' : Text(part));
    }
    return texts.join(word);
}

QString Text(const store::Condition& condition) {
    if (const auto* comparison = std::get_if<store::Comparison>(&condition)) {
        return comparison->column + Text(comparison->op) + Text(comparison->value);
    }
    if (const auto* between = std::get_if<store::Between>(&condition)) {
        return between->column + u" between " + Text(between->first) + u" and " + Text(between->last);
    }
    if (const auto* all = std::get_if<store::AllOf>(&condition)) {
        return Joined(all->parts, u" and "_s, true);
    }
    return Joined(std::get<store::AnyOf>(condition).parts, u" or "_s,
                  false);  // AND binds tighter, so no brackets are needed
}

QString Text(const std::vector<store::QualifiedColumn>& columns) {
    QStringList names;
    for (const store::QualifiedColumn& column : columns) {
        names.append(column.table + u'.' + column.column);
    }
    return names.isEmpty() ? u"*"_s : names.join(u',');
}

struct Printer {
    QString operator()(const store::SelectStatement& select) const {
        return u"select "_s + Text(select.columns) + u" from " + select.table + u" where " +
               Text(select.where);
    }
    QString operator()(const store::DeleteStatement& erase) const {
        return u"delete "_s + Text(erase.columns) + u" from " + erase.table + u" where " + Text(erase.where);
    }
    QString operator()(const store::InsertStatement& insert) const {
        const QStringList columns(insert.columns.begin(), insert.columns.end());
        QStringList values;
        for (const store::SqlLiteral& value : insert.values) {
            values.append(Text(value));
        }
        const QString named = columns.isEmpty() ? QString() : u'(' + columns.join(u',') + u')';
        return u"insert into "_s + insert.table + named + u" values(" + values.join(u',') + u')';
    }
    QString operator()(const store::UpdateStatement& update) const {
        QStringList assignments;
        for (const store::Assignment& assignment : update.assignments) {
            assignments.append(assignment.column + u'=' + Text(assignment.value));
        }
        return u"update "_s + update.table + u" set " + assignments.join(u',') + u" where " +
               Text(update.where);
    }
};

}  // namespace

QString Printed(const store::SqlStatement& statement) {
    return std::visit(Printer{}, statement);
}

}  // namespace tickwell
