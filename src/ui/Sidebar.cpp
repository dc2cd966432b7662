#include "ui/Sidebar.h"

#include "platform/Platform.h"
#include "ui/ResourceImage.h"
#include "ui/SectionButton.h"
#include "ui/kit/Accessibility.h"
#include "ui/kit/Divider.h"
#include "ui/kit/SearchField.h"
#include "ui/kit/Stacks.h"
#include "ui/kit/TextLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The brand image; a bundle without one shows the program's name alone.
QWidget* brandImage()
{
    auto* const label = new QLabel;
    const int edge = Style::brandImage;
    const qreal ratio = label->devicePixelRatio();
    ResourceImage brand;
    brand.load(Platform::current().bundles->mainResources() / "Brand.png", int(edge * ratio));
    label->setFixedSize(edge, edge);
    label->setPixmap(QPixmap::fromImage(brand.fitted(QSizeF(edge, edge), ratio)));
    label->setAlignment(Qt::AlignCenter);
    makeDecorative(*label);
    label->setVisible(!brand.image().isNull());
    return label;
}

QLayout* maker()
{
    return hstack({.spacing = Style::makerSpacing},
        {
            new TextLabel({.style = Style::body,
                .color = Style::secondaryText(),
                .symbol = u"person.crop.circle"_s,
                .symbolSize = Style::makerSymbol}),
            stretched(vstack({.spacing = Style::makerLineSpacing},
                {
                    new TextLabel({.style = Style::makerName}, u"Orbanel"_s),
                    new TextLabel(
                        {.style = Style::makerNote, .color = Style::secondaryText()}, u"Личная коллекция"_s),
                })),
        });
}

} // namespace

Sidebar::Sidebar(QWidget* parent) : QWidget(parent), m_search(new SearchField(u"Поиск приложений"_s))
{
    QVBoxLayout* const list = vstack({.spacing = Style::sectionSpacing}, {});
    for (const Section& section : sections()) {
        auto* const button = new SectionButton(section);
        connect(button, &QAbstractButton::clicked, this,
            [this, title = section.title] { Q_EMIT sectionChosen(title); });
        append(*list, {button}, {});
        m_sections.push_back(button);
    }
    auto* const name = new TextLabel({.style = Style::brandName}, u"PloviStore"_s);
    setLayout(vstack(
        {.spacing = Style::sidebarSpacing,
            .margins = {Style::sidebarMargin, Style::sidebarTop, Style::sidebarMargin, Style::sidebarBottom}},
        {
            hstack({.spacing = Style::brandSpacing}, {brandImage(), stretched(name)}),
            m_search,
            list,
            Spacer(),
            new Divider,
            maker(),
        }));
    setMinimumWidth(Style::sidebarMinWidth);
    setMaximumWidth(Style::sidebarMaxWidth);

    // Not only typing edits: assistive technology sets the text as a program does.
    connect(m_search, &QLineEdit::textChanged, this, &Sidebar::searchEdited);
}

void Sidebar::present(const ViewState& view)
{
    // The same text again would move the caret to its end.
    if (m_search->text() != view.search)
        m_search->setText(view.search);
    for (SectionButton* button : m_sections)
        button->present(view.section);
}

void Sidebar::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void Sidebar::keyPressEvent(QKeyEvent* event)
{
    const auto focused = std::ranges::find(m_sections, focusWidget());
    const bool isUp = event->key() == Qt::Key_Up;
    if (focused == m_sections.end() || (!isUp && event->key() != Qt::Key_Down)) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (isUp && focused != m_sections.begin())
        (*std::prev(focused))->setFocus(Qt::BacktabFocusReason);
    else if (!isUp && std::next(focused) != m_sections.end())
        (*std::next(focused))->setFocus(Qt::TabFocusReason);
}

void Sidebar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Style::sidebar());
}
