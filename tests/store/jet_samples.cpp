// SPDX-License-Identifier: GPL-3.0-or-later
#include "store/jet_samples.h"

#include <QFile>

#include "core/errors.h"
#include "store/day_schema.h"

namespace tickwell::store {

using namespace Qt::StringLiterals;

QByteArray JetSample(const QString& name) {
    QFile file(QStringLiteral(TICKWELL_JET_SAMPLES "/") + name);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("cannot read %s", qPrintable(file.fileName()));
    }
    return file.readAll();
}

QByteArray AsTsv(const DayRows& rows) {
    QString tsv;
    for (qsizetype i = 0; i < rows.size(); ++i) {
        for (const QList<DayValue>& row : rows.at(i).rows) {
            tsv += SchemaTables()[static_cast<size_t>(i)].name;
            for (const DayValue& value : row) {
                const qint32* number = std::get_if<qint32>(&value);
                QString text = number != nullptr ? QString::number(*number) : std::get<QString>(value);
                tsv += u'\t' + text.replace(u"\\"_s, u"\\\\"_s).replace(u"\n"_s, u"\\n"_s);
            }
            tsv += u'\n';
        }
    }
    return tsv.toUtf8();
}

DayRows RowsOf(const QByteArray& file) {
    return ReadDayRows(JetFile(file));
}

QString Refusal(const QByteArray& file) {
    try {
        RowsOf(file);
        return QString();
    } catch (const RunTimeError& error) {
        return error.Reason();
    }
}

}  // namespace tickwell::store
