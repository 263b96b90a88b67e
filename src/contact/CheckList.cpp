#include "contact/CheckList.h"

#include <QCheckBox>
#include <QGridLayout>

namespace Tesk {

namespace {

constexpr int RowGap = 4; // pixels

} // namespace

CheckList::CheckList(const QString &boxName, int boxCount, int columnCount, QWidget *parent)
    : QGroupBox(parent)
{
    auto *const grid = new QGridLayout(this);
    grid->setVerticalSpacing(RowGap);
    const int rowCount = (boxCount + columnCount - 1) / columnCount;
    for (int i = 0; i < boxCount; ++i) {
        auto *const box = new QCheckBox(this);
        box->setObjectName(boxName + QString::number(i));
        grid->addWidget(box, i % rowCount, i / rowCount);
        boxes.push_back(box);
    }
    grid->setColumnStretch(columnCount - 1, 1);
}

void CheckList::SetCaptions(const QString &title, const QStringList &boxCaptions)
{
    setTitle(title);
    captions = boxCaptions;
    for (int i = 0; i < Count(); ++i)
        boxes[static_cast<size_t>(i)]->setText(captions.value(i));
}

void CheckList::UncheckAll()
{
    for (QCheckBox *const box : boxes)
        box->setChecked(false);
}

QStringList CheckList::CheckedCaptions() const
{
    QStringList checked;
    for (int i = 0; i < Count(); ++i) {
        // Not the box's own text: some desktops add mnemonics to it.
        if (boxes[static_cast<size_t>(i)]->isChecked())
            checked += captions.value(i);
    }
    return checked;
}

} // namespace Tesk
