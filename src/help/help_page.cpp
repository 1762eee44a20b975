// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/help_page.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace tickwell::help {

using namespace Qt::StringLiterals;

namespace {

struct Link {
    QString text;
    QString href;
    int position = 0;
};

/// Calls `visit` for each fragment of text with a uniform format.
template <typename Visit>
void ForEachFragment(const QTextBlock& block, Visit visit) {
    for (auto each = block.begin(); !each.atEnd(); ++each) {
        visit(each.fragment());
    }
}

void ReadBlock(const QTextBlock& block, HelpPage& page, QList<Link>& links) {
    constexpr int kTitle = 1;
    const int level = block.blockFormat().headingLevel();
    if (level > kTitle) {
        page.headings.append({level, block.text().simplified(), block.position()});
    }
    ForEachFragment(block, [&](const QTextFragment& fragment) {
        const QTextCharFormat format = fragment.charFormat();
        for (const QString& name : format.anchorNames()) {
            page.anchors.insert(name, fragment.position());
        }
        if (!format.anchorHref().isEmpty()) {
            links.append({fragment.text(), format.anchorHref(), fragment.position()});
        }
    });
}

}  // namespace

int HelpPage::TopicPosition(int topic) const {
    return anchors.value(u"topic"_s + QString::number(topic), 0);
}

std::optional<int> HelpPage::LinkPosition(const QString& href) const {
    const auto anchor = href.startsWith(u'#') ? anchors.find(href.mid(1)) : anchors.end();
    return anchor == anchors.end() ? std::nullopt : std::optional(*anchor);
}

int HelpPage::HeadingAt(int position) const {
    const auto behind =
        std::upper_bound(headings.begin(), headings.end(), position,
                         [](int wanted, const HelpHeading& heading) { return wanted < heading.position; });
    return static_cast<int>(behind - headings.begin()) - 1;
}

HelpPage HelpPageOf(const QTextDocument& document) {
    HelpPage page;
    QList<Link> links;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        ReadBlock(block, page, links);
    }
    const std::optional<int> index = page.LinkPosition(u"#index"_s);
    for (const Link& link : links) {
        const std::optional<int> target = page.LinkPosition(link.href);
        if (index && link.position > *index && target) {
            page.index.append({link.text, *target});
        }
    }
    page.text = FoldedText(document.toRawText());
    return page;
}

}  // namespace tickwell::help
