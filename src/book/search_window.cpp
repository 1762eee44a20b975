// SPDX-License-Identifier: GPL-3.0-or-later
#include "book/search_window.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "controls/control_making.h"

namespace tickwell::book {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 3> kKindCaptions{u"指定の日だけの記念日", u"毎年の記念日", u"毎月の記念日"};
constexpr std::array<QStringView, 2> kConditionCaptions{u"条件に入れる", u"条件からはずす"};
constexpr std::array<QStringView, 3> kRangeCaptions{u"範囲指定", u"以後", u"以前"};

constexpr DateNames kStartNames{.texts = {u"Text2", u"Text3", u"Text4"},
                                .upDowns = {u"UpDown1", u"UpDown2", u"UpDown3"},
                                .labels = {u"Label2", u"Label3", u"Label4"}};
constexpr DateNames kEndNames{.texts = {u"Text5", u"Text6", u"Text7"},
                              .upDowns = {u"UpDown5", u"UpDown4", u"UpDown6"},
                              .labels = {u"Label5", u"Label6", u"Label7"}};

/// Makes a row of option buttons that exclude one another; the group separates them from all other options.
/// Like all controls they are children of the window from the start: the tab order is the order in which
/// children are added.
template <std::size_t count>
QHBoxLayout* MakeOptions(std::array<QRadioButton*, count>& options,
                         const std::array<QStringView, count>& captions, const QString& name,
                         QWidget* parent) {
    auto* row = new QHBoxLayout;
    auto* group = new QButtonGroup(parent);
    for (std::size_t i = 0; i < count; ++i) {
        options.at(i) = controls::Named(new QRadioButton(captions.at(i).toString(), parent),
                                        controls::Indexed(name, static_cast<int>(i)));
        group->addButton(options.at(i));
        row->addWidget(options.at(i));
    }
    row->addStretch();
    return row;
}

}  // namespace

Form9::Form9(const BookParts& parts, QWidget* parent) : BookWindow(parts, parent) {
    setObjectName(u"Form9"_s);
    setWindowTitle(u"記念日の検索"_s);
    MakeControls();
    Form_Load();
    Connect();
}

void Form9::MakeControls() {
    auto* rows = new QVBoxLayout(this);
    rows->setSizeConstraint(QLayout::SetFixedSize);
    for (std::size_t kind = 0; kind < m_kinds.size(); ++kind) {
        m_kinds.at(kind) = controls::Named(new QCheckBox(kKindCaptions.at(kind).toString(), this),
                                           u"Check%1"_s.arg(kind + 1));
        rows->addWidget(m_kinds.at(kind));
    }
    rows->addWidget(NameFrame());
    rows->addWidget(DateConditionFrame());
    AddButtons(*rows, u"検索開始"_s, u"検索しています"_s, [this] { Command1_Click(); });
    FitOnScreen(*rows);
}

QGroupBox* Form9::NameFrame() {
    auto* frame = controls::Named(new QGroupBox(u"記念日名"_s, this), u"Frame1"_s);
    auto* rows = new QVBoxLayout(frame);
    rows->addLayout(MakeOptions(m_nameOptions, kConditionCaptions, u"Option1"_s, this));
    m_nameLabel = controls::Named(new QLabel(u"記念日名"_s), u"Label1"_s);
    m_name = controls::Named(new QLineEdit(this), u"Text1"_s, m_nameLabel->text());
    m_nameLabel->setBuddy(m_name);
    auto* row = new QHBoxLayout;
    row->addWidget(m_nameLabel);
    row->addWidget(m_name);
    rows->addLayout(row);
    return frame;
}

QGroupBox* Form9::DateConditionFrame() {
    auto* frame = controls::Named(new QGroupBox(u"日付"_s, this), u"Frame2"_s);
    auto* rows = new QVBoxLayout(frame);
    rows->addLayout(MakeOptions(m_dateOptions, kConditionCaptions, u"Option2"_s, this));
    m_rangeFrame = controls::Named(new QGroupBox(u"範囲"_s, this), u"Frame5"_s);
    m_rangeFrame->setLayout(MakeOptions(m_rangeOptions, kRangeCaptions, u"Option3"_s, this));
    m_start = controls::Named(new DateFrame(u"開始"_s, kStartNames, this), u"Frame3"_s);
    m_end = controls::Named(new DateFrame(u"終了"_s, kEndNames, this), u"Frame4"_s);
    rows->addWidget(m_rangeFrame);
    rows->addWidget(m_start);
    rows->addWidget(m_end);
    return frame;
}

void Form9::Connect() {
    Handlers& handlers = Parts().handlers;
    const auto connectAll = [&](const auto& options) {
        for (const QRadioButton* option : options) {
            handlers.Connect(option, &QRadioButton::clicked, this, [this] { Enable(); });
        }
    };
    connectAll(m_nameOptions);
    connectAll(m_dateOptions);
    connectAll(m_rangeOptions);
}

/// All kinds and no condition: an immediate search lists everything. Both dates are today.
void Form9::Form_Load() {
    for (QCheckBox* box : m_kinds) {
        box->setChecked(true);
    }
    m_nameOptions[1]->setChecked(true);
    m_dateOptions[1]->setChecked(true);
    m_rangeOptions[0]->setChecked(true);
    const QDate today = Parts().clock.Now().date();
    m_start->ShowDate(today);
    m_end->ShowDate(today);
    Enable();
    m_kinds[0]->setFocus();
}

SearchFields Form9::Fields() const {
    SearchFields fields;
    fields.oneDay = m_kinds[0]->isChecked();
    fields.everyYear = m_kinds[1]->isChecked();
    fields.everyMonth = m_kinds[2]->isChecked();
    fields.byName = m_nameOptions[0]->isChecked();
    fields.name = m_name->text();
    fields.byDate = m_dateOptions[0]->isChecked();
    fields.range = Range();
    fields.start = m_start->Fields();
    fields.end = m_end->Fields();
    return fields;
}

RangeKind Form9::Range() const {
    if (m_rangeOptions[1]->isChecked()) {
        return RangeKind::After;
    }
    return m_rangeOptions[2]->isChecked() ? RangeKind::Before : RangeKind::FromTo;
}

void Form9::Enable() {
    const SearchEnabling can =
        EnablingOf(m_nameOptions[0]->isChecked(), m_dateOptions[0]->isChecked(), Range());
    m_nameLabel->setEnabled(can.name);
    m_name->setEnabled(can.name);
    m_rangeFrame->setEnabled(can.range);
    m_start->setEnabled(can.start);
    m_end->setEnabled(can.end);
}

void Form9::Command1_Click() {
    if (IsTelling()) {
        return;
    }
    std::optional<SearchConditions> conditions = ConditionsOf(Fields());
    if (!conditions) {
        Tell(u"検索開始エラー"_s, u"無効なデータが条件になっています。"_s);
        return;
    }
    conditions->acrossMonths = Parts().further.corrections.searchAcrossMonths;
    auto work = std::make_unique<AnniversarySearch>(Parts().dayDatabase, *conditions);
    AnniversarySearch& search = *work;
    Work().Start(std::move(work), [this, &search](const controls::WorkEnd& end) {
        if (end.error) {
            std::rethrow_exception(end.error);
        }
        if (!end.isStopped) {
            ShowFinds(search);
        }
    });
}

void Form9::ShowFinds(AnniversarySearch& search) {
    SearchFinds finds = search.TakeFinds();
    Parts().list.ListFound(std::move(finds.rows), finds.searched);
    accept();
}

}  // namespace tickwell::book
