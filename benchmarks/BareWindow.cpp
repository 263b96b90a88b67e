// The least that a program with the same browser engine can be: one window for each address on the
// command line. It says "shown" for each page that is complete, pictures included, and then opens
// the address of each line that it is told in its first window.

#include <QApplication>
#include <QScreen>
#include <QSocketNotifier>
#include <QWebEngineView>

#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    std::vector<std::unique_ptr<QWebEngineView>> windows;
    const QStringList addresses = QCoreApplication::arguments().mid(1);
    for (const QString &address : addresses) {
        auto &window = windows.emplace_back(std::make_unique<QWebEngineView>());
        QObject::connect(window.get(), &QWebEngineView::loadFinished, [](bool isLoaded) {
            std::puts(isLoaded ? "shown" : "failed");
            std::fflush(stdout);
        });
        window->resize(window->screen()->availableSize());
        window->load(QUrl(address));
        window->show();
    }
    const QSocketNotifier input(fileno(stdin), QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, [&windows] {
        std::string address;
        if (!std::getline(std::cin, address))
            QCoreApplication::quit();
        else
            windows.front()->load(QUrl(QString::fromStdString(address)));
    });
    return QApplication::exec();
}
