// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/clock_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "controls/control_making.h"

namespace tickwell {

using namespace Qt::StringLiterals;

ClockPage::ClockPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_draft(draft),
      m_Option3(u"Option3"_s, kLanguageOptions, this, parts.handlers,
                [this](qint32 index) { Option3_Click(index); }),
      m_Option4(u"Option4"_s, kYearOptions, this, parts.handlers,
                [this](qint32 index) { m_draft.settings.yearStyle = index; }),
      m_Option5(u"Option5"_s, kStyleOptions, this, parts.handlers,
                [this](qint32 index) { m_draft.settings.displayMode = index; }),
      m_Option6(u"Option6"_s, kHourOptions, this, parts.handlers,
                [this](qint32 index) { m_draft.settings.hourStyle = index; }),
      m_Frame5(MakeFrame(u"Frame5"_s, u"表示言語"_s, m_Option3)),
      m_Frame6(MakeFrame(u"Frame6"_s, u"年号"_s, m_Option4)),
      m_Frame7(MakeFrame(u"Frame7"_s, u"時刻形式"_s, m_Option6)),
      m_Frame8(MakeFrame(u"Frame8"_s, u"ｽﾀｲﾙ"_s, m_Option5)) {
    setObjectName(u"Picture3"_s);
    auto* grid = new QGridLayout(this);
    grid->addWidget(m_Frame5, 0, 0, 1, 2);
    grid->addWidget(m_Frame7, 1, 0);
    grid->addWidget(m_Frame8, 1, 1);
    grid->addWidget(m_Frame6, 2, 0);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
}

/// A frame with the options side by side.
QGroupBox* ClockPage::MakeFrame(const QString& name, const QString& caption, const OptionArray& options) {
    auto* frame = Named(new QGroupBox(caption, this), name);
    auto* row = new QHBoxLayout;
    for (QAbstractButton* option : options.Buttons()) {
        row->addWidget(option);
    }
    row->addStretch();
    auto* rows = new QVBoxLayout(frame);
    if (name == u"Frame5") {
        rows->addWidget(
            Named(new QLabel(u"ﾃﾞｼﾞﾀﾙ時計,Windows時計においての、表示言語（方法）を指定します。"_s, this),
                  u"Label2"_s));
    }
    rows->addLayout(row);
    return frame;
}

void ClockPage::Form_Load() {
    const AppSettings& settings = m_draft.settings;
    m_Option3.Select(settings.language);
    m_Option4.Select(settings.yearStyle);
    m_Option5.Select(settings.displayMode);
    m_Option6.Select(settings.hourStyle);
    ShowLanguage();
}

void ClockPage::Option3_Click(qint32 index) {
    m_draft.settings.language = index;
    ShowLanguage();
}

void ClockPage::ShowLanguage() {
    const YearWords words = YearWordsOf(m_draft.settings.language);
    for (QGroupBox* frame : {m_Frame6, m_Frame7, m_Frame8}) {
        frame->setEnabled(words.enabled);
    }
    for (OptionArray* options : {&m_Option4, &m_Option5, &m_Option6}) {
        options->SetEnabled(words.enabled);
    }
    if (!words.frame.isEmpty()) {
        m_Frame6->setTitle(words.frame.toString());
        m_Option4.SetCaption(0, words.captions[0].toString());
        m_Option4.SetCaption(1, words.captions[1].toString());
    }
}

}  // namespace tickwell
