#pragma once

#include "core/Controller.h"
#include "core/Registry.h"

#include <QTemporaryDir>

#include <memory>

namespace Tesk {

/// An application directory made for one test from the sample database, with language files that
/// give every key the text "<code>:<key>", and a started Controller on it.
class TestApplication final
{
public:
    /// `databaseFile` becomes catalog.db.
    explicit TestApplication(const QString &databaseFile);

    QString Path(const QString &relative = QString()) const;
    Controller &GetController() { return *controller; }
    Registry &GetRegistry() { return registry; }

    /// The keys that the language files define.
    static QStringList Keys();

private:
    void WriteFile(const QString &relative, const QByteArray &bytes) const;

    QTemporaryDir folder;
    Registry registry;
    std::unique_ptr<Controller> controller;
};

} // namespace Tesk
