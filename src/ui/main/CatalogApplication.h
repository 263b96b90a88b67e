#pragma once

#include <QApplication>

namespace Tesk {

/// The application, with the one handler around the event loop for errors that nothing on their way
/// caught: a message box names the error and the program goes on.
class CatalogApplication final : public QApplication
{
    Q_OBJECT

public:
    CatalogApplication(int &argc, char **argv);

    bool notify(QObject *receiver, QEvent *event) override;

private:
    void ShowError(const QString &message);

    bool isShowingError = false;
};

} // namespace Tesk
