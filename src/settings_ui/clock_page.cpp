// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings_ui/clock_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>

#include "controls/control_making.h"

namespace tickwell::settings_ui {

using namespace Qt::StringLiterals;

ClockPage::ClockPage(const SettingsParts& parts, SettingsDraft& draft, QWidget* parent)
    : QWidget(parent),
      m_draft(draft),
      m_languageOptions(u"Option3"_s, kLanguageOptions, this, parts.handlers,
                        [this](qint32 index) { Option3_Click(index); }),
      m_yearOptions(u"Option4"_s, kYearOptions, this, parts.handlers,
                    [this](qint32 index) { m_draft.settings.yearStyle = index; }),
      m_styleOptions(u"Option5"_s, kStyleOptions, this, parts.handlers,
                     [this](qint32 index) { m_draft.settings.displayMode = index; }),
      m_hourOptions(u"Option6"_s, kHourOptions, this, parts.handlers,
                    [this](qint32 index) { m_draft.settings.hourStyle = index; }),
      m_languageFrame(MakeFrame(u"Frame5"_s, u"表示言語"_s, m_languageOptions)),
      m_yearFrame(MakeFrame(u"Frame6"_s, u"年号"_s, m_yearOptions)),
      m_hourFrame(MakeFrame(u"Frame7"_s, u"時刻形式"_s, m_hourOptions)),
      m_styleFrame(MakeFrame(u"Frame8"_s, u"ｽﾀｲﾙ"_s, m_styleOptions)) {
    setObjectName(u"Picture3"_s);
    auto* grid = new QGridLayout(this);
    grid->addWidget(m_languageFrame, 0, 0, 1, 2);
    grid->addWidget(m_hourFrame, 1, 0);
    grid->addWidget(m_styleFrame, 1, 1);
    grid->addWidget(m_yearFrame, 2, 0);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
}

/// A frame with the options side by side.
QGroupBox* ClockPage::MakeFrame(const QString& name, const QString& caption, const OptionArray& options) {
    auto* frame = controls::Named(new QGroupBox(caption, this), name);
    auto* row = new QHBoxLayout;
    for (QAbstractButton* option : options.Buttons()) {
        row->addWidget(option);
    }
    row->addStretch();
    auto* rows = new QVBoxLayout(frame);
    if (name == u"Frame5") {
        rows->addWidget(controls::Named(
            new QLabel(u"ﾃﾞｼﾞﾀﾙ時計,Windows時計においての、表示言語（方法）を指定します。"_s, this),
            u"Label2"_s));
    }
    rows->addLayout(row);
    return frame;
}

void ClockPage::Form_Load() {
    const AppSettings& settings = m_draft.settings;
    m_languageOptions.Select(settings.language);
    m_yearOptions.Select(settings.yearStyle);
    m_styleOptions.Select(settings.displayMode);
    m_hourOptions.Select(settings.hourStyle);
    ShowLanguage();
}

void ClockPage::Option3_Click(qint32 index) {
    m_draft.settings.language = index;
    ShowLanguage();
}

void ClockPage::ShowLanguage() {
    const YearWords words = YearWordsOf(m_draft.settings.language);
    for (QGroupBox* frame : {m_yearFrame, m_hourFrame, m_styleFrame}) {
        frame->setEnabled(words.enabled);
    }
    for (OptionArray* options : {&m_yearOptions, &m_styleOptions, &m_hourOptions}) {
        options->SetEnabled(words.enabled);
    }
    if (!words.frame.isEmpty()) {
        m_yearFrame->setTitle(words.frame.toString());
        m_yearOptions.SetCaption(0, words.captions[0].toString());
        m_yearOptions.SetCaption(1, words.captions[1].toString());
    }
}

}  // namespace tickwell::settings_ui
