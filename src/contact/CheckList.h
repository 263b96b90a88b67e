#pragma once

#include <QGroupBox>
#include <QStringList>

#include <vector>

class QCheckBox;

namespace Tesk {

/// A frame of check boxes, laid out in columns that are read downwards.
class CheckList final : public QGroupBox
{
    Q_OBJECT

public:
    /// The boxes are named `boxName` and their index from 0.
    CheckList(const QString &boxName, int boxCount, int columnCount, QWidget *parent = nullptr);

    /// One caption for each box, in index order.
    void SetCaptions(const QString &title, const QStringList &boxCaptions);
    void UncheckAll();
    /// In index order.
    QStringList CheckedCaptions() const;
    int Count() const { return static_cast<int>(boxes.size()); }

private:
    std::vector<QCheckBox *> boxes;
    QStringList captions;
};

} // namespace Tesk
