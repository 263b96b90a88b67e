#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace Tesk {

class CategoryNode;
class MeasuredWindow;

/// Someone who looks at category after category, always in the same manner. A page that does not
/// come ends the benchmark.
class Visitor final
{
public:
    explicit Visitor(MeasuredWindow &measuredWindow);

    /// Leads to the next page and waits until it is filled.
    void ChangePage();

private:
    void ShowHome();
    void ShowCategory();
    void ShowList();
    void ShowDetails();
    void ShowNext();
    void GoBack();
    void ChangeLanguage();
    void Search();
    void Await(const std::function<void()> &action);
    const CategoryNode *Leaf() const;

    /// A tour: from the welcome page into a category, and then the results of a search.
    using Step = void (Visitor::*)();
    const std::vector<Step> steps{
        &Visitor::ShowHome, &Visitor::ShowCategory, &Visitor::ShowList, &Visitor::ShowDetails,
        &Visitor::ShowNext, &Visitor::ShowNext,     &Visitor::GoBack,   &Visitor::ChangeLanguage,
        &Visitor::Search,   &Visitor::ShowDetails};

    MeasuredWindow &window;
    std::vector<const CategoryNode *> leaves;
    size_t changes = 0;
};

} // namespace Tesk
