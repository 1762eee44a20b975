// SPDX-License-Identifier: GPL-3.0-or-later
#include "exchange/import_window.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "controls/control_making.h"
#include "controls/tab_order.h"
#include "core/errors.h"
#include "exchange/file_reading.h"
#include "exchange/row_import.h"

namespace tickwell::exchange {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLines = 14;    // smallest height of the table
constexpr int kLetters = 44;  // its smallest width

}  // namespace

Form12::Form12(const ExchangeParts& parts, QString file, QWidget* parent)
    : QDialog(parent),
      m_parts(parts),
      m_file(std::move(file)),
      m_model(new OfferModel(this)),
      m_table(controls::Named(new OfferTable(this), u"ListView1"_s)),
      m_sums(new QLabel(this)),
      m_splits(controls::Named(new QCheckBox(u"表せない繰り返しは、今後1年分を1日ずつ取り込む"_s, this),
                               u"Check1"_s)),
      m_reading(new controls::WorkBar(parts.timers, parts.handlers, u"読み込んでいます"_s, this)),
      m_storing(new controls::WorkBar(parts.timers, parts.handlers, u"取り込んでいます"_s, this)) {
    setObjectName(u"Form12"_s);
    setWindowTitle(u"記念日の読込"_s);
    MakeControls();
    controls::TabInLayoutOrder(*this);
    ShowSums();
}

void Form12::MakeControls() {
    auto* name =
        controls::MakeLabel(u"Label1"_s, u"%1 から取り込む記念日"_s.arg(QFileInfo(m_file).fileName()), this);
    name->setBuddy(m_table);
    m_table->setAccessibleName(u"取り込む記念日"_s);
    m_table->setModel(m_model);
    m_table->setMinimumSize(kLetters * fontMetrics().horizontalAdvance(u'記'),
                            kLines * fontMetrics().height());
    m_sums->setObjectName(u"Label2"_s);
    m_sums->setTextFormat(Qt::PlainText);
    m_sums->setWordWrap(true);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(name);
    rows->addWidget(m_table, 1);
    rows->addLayout(MakeTicking());
    rows->addWidget(m_splits);
    rows->addLayout(MakeButtons());
    rows->addWidget(m_reading);
    rows->addWidget(m_storing);
    Handlers& handlers = m_parts.handlers;
    handlers.Connect(m_model, &QAbstractItemModel::dataChanged, this, [this] { ShowSums(); });
    handlers.Connect(m_splits, &QCheckBox::clicked, this, [this] { Check1_Click(); });
}

QLayout* Form12::MakeTicking() {
    m_tickAll =
        controls::MakeButton(u"Command3"_s, u"全選"_s, this, m_parts.handlers, [this] { TickAll(true); });
    m_untickAll =
        controls::MakeButton(u"Command4"_s, u"全解"_s, this, m_parts.handlers, [this] { TickAll(false); });
    m_tickAll->setAccessibleName(u"全選択"_s);
    m_untickAll->setAccessibleName(u"全解除"_s);
    auto* row = new QHBoxLayout;
    for (QPushButton* button : {m_tickAll, m_untickAll}) {
        button->setAutoDefault(false);
        row->addWidget(button);
    }
    row->addWidget(m_sums, 1);
    return row;
}

QLayout* Form12::MakeButtons() {
    m_import = controls::MakeButton(u"Command1"_s, u"取り込む"_s, this, m_parts.handlers,
                                    [this] { Command1_Click(); });
    auto* cancel =
        controls::MakeButton(u"Command2"_s, u"ｷｬﾝｾﾙ"_s, this, m_parts.handlers, [this] { reject(); });
    m_import->setDefault(true);
    auto* row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_import);
    row->addWidget(cancel);
    return row;
}

void Form12::Read() {
    StartReading({});
}

void Form12::StartReading(const QList<int>& split) {
    std::unique_ptr<FileReading> work;
    try {
        work = std::make_unique<FileReading>(ReadingParts{.dayDatabase = m_parts.dayDatabase,
                                                          .helper = m_parts.helper,
                                                          .today = m_parts.clock.Now().date()},
                                             m_file, split);
    } catch (const RunTimeError& error) {
        Tell(error.Reason(), parentWidget());
        QDialog::reject();
        return;
    }
    FileReading& reading = *work;
    m_reading->Start(std::move(work), [this, &reading](const controls::WorkEnd& end) {
        if (!end.error && !end.isStopped) {
            ShowOffer(reading.TakeOffer());
            return;
        }
        QDialog::reject();
        try {
            if (end.error) {
                std::rethrow_exception(end.error);
            }
        } catch (const RunTimeError& error) {
            Tell(error.Reason(), parentWidget());
        }
    });
}

void Form12::ShowOffer(Offer offer) {
    if (!std::exchange(m_hasRead, true)) {
        m_refused = offer.refusedEvents;
    }
    m_model->SetOffer(std::move(offer));
    m_table->FitColumns();
    m_table->setCurrentIndex(m_model->index(0, OfferModel::Name));
    ShowSums();
    m_table->setFocus();
}

void Form12::ShowSums() {
    const int ticked = m_model->TickedCount();
    m_sums->setText(SumsText(m_model->Shown()) + u"、選択 %1件"_s.arg(ticked));
    m_import->setEnabled(ticked > 0);
    m_splits->setEnabled(!m_refused.isEmpty());
}

void Form12::TickAll(bool isTicked) {
    m_model->TickAll(isTicked);
}

void Form12::Check1_Click() {
    StartReading(m_splits->isChecked() ? m_refused : QList<int>());
}

void Form12::Command1_Click() {
    const int count = m_model->TickedCount();
    auto work = std::make_unique<RowImport>(m_parts.dayDatabase, m_model->TickedRows());
    m_storing->Start(std::move(work), [this, count](const controls::WorkEnd& end) {
        if (end.error) {
            std::rethrow_exception(end.error);
        }
        if (!end.isStopped) {
            m_parts.changes.RaiseRefresh();
            m_parts.imported();
            accept();
            Tell(u"記念日 %1件を取り込みました。"_s.arg(count), parentWidget());
        }
    });
}

void Form12::Tell(const QString& text, const QObject* owner) {
    const bool isDone = result() == Accepted;
    m_parts.boxes.Show(
        owner, {isDone ? MessageIcon::Information : MessageIcon::Exclamation, windowTitle(), text}, [] {});
}

void Form12::reject() {
    for (controls::WorkBar* bar : {m_reading, m_storing}) {
        if (bar->IsWorking()) {
            bar->Stop();
            return;
        }
    }
    QDialog::reject();
}

}  // namespace tickwell::exchange
