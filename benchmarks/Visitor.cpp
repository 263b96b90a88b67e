#include "Visitor.h"

#include "MeasuredWindow.h"
#include "support/ShownPage.h"
#include "support/UserActions.h"
#include "ui/main/HeaderBand.h"
#include "ui/main/controls/ItemScroller.h"

#include <QPushButton>

namespace Tesk {

namespace {

const QString FirstRow = QStringLiteral("tr.contListRow td:nth-child(2)");

/// What two steps to a next product need.
constexpr int FewestProducts = 3;

ResultTable ProductsOf(MeasuredWindow &window, const CategoryNode *leaf)
{
    return window.Catalogue().GetController().Queries().QueryProductsOfCategory(leaf->tag);
}

} // namespace

Visitor::Visitor(MeasuredWindow &measuredWindow)
    : window(measuredWindow)
{
    for (const auto &node : window.Catalogue().Window().Tree().Nodes()) {
        if (!node->HasChildren() && node->parent != nullptr &&
            ProductsOf(window, node.get()).UpperRow() >= FewestProducts)
            leaves.push_back(node.get());
    }
}

void Visitor::ChangePage()
{
    (this->*steps[changes % steps.size()])();
    ++changes;
}

const CategoryNode *Visitor::Leaf() const
{
    return leaves[changes / steps.size() % leaves.size()];
}

void Visitor::Await(const std::function<void()> &action)
{
    if (!WaitForFillAfter(window.Catalogue(), action))
        qFatal("page change %zu does not come", changes);
    // The page answers in the order in which it is told: all of it is there now.
    window.Catalogue().Evaluate(QStringLiteral("0"));
}

void Visitor::ShowHome()
{
    window.GoHome();
}

void Visitor::ShowCategory()
{
    window.PointTo(Leaf()->parent);
    Await([this] { window.Click(Leaf()->parent); });
}

void Visitor::ShowList()
{
    window.PointTo(Leaf());
    Await([this] { window.Click(Leaf()); });
}

void Visitor::ShowDetails()
{
    Await([this] { window.Catalogue().Click(FirstRow); });
}

void Visitor::ShowNext()
{
    Await([this] { window.Catalogue().Window().scroller->PressNext(); });
}

void Visitor::GoBack()
{
    Await([this] { window.Catalogue().Window().GoBack(); });
}

void Visitor::ChangeLanguage()
{
    const auto &buttons = window.Catalogue().Window().header->btnLang;
    Await([&] { ClickOn(buttons.at(changes / steps.size() % buttons.size())); });
}

/// By the first two words of a product's name.
void Visitor::Search()
{
    const QString name = GetField(QStringLiteral("l.name"), ProductsOf(window, Leaf()), 1);
    Await([&] { FastSearchFor(window.Catalogue(), name.section(u' ', 0, 1)); });
}

} // namespace Tesk
