#pragma once

#include "sources/LanguageSource.h"
#include "sources/PriceSource.h"
#include "sources/SchemaSource.h"
#include "sources/TableSource.h"

#include <QByteArray>
#include <QDir>
#include <QMap>
#include <QString>
#include <QStringList>

#include <vector>

namespace Tesk {

class Problems;

/// A folder of catalogue sources, its texts read whole. Other files are read when they are needed.
///
///     version            one line, the catalogue's version
///     prices.tsv         the price list, if there is one
///     tables/            schema.sql and <table>.tsv
///     languages/         loc_<code>.txt
///     content/           pages, styles, scripts; img/*.svg become GIF pictures
///     documents/         pages inside the container, at /Dokumente
///     drawings/          vector drawings, at /Grafiken/klein and /Grafiken/gross
///     pictures/          ready pictures in klein/ and gross/, at the same places
///     datasheets/        <name>.html printed as PDF, <name>.pdf taken as it is
class CatalogueSources final
{
public:
    /// Reads what stands in `folder`. What cannot be read is a problem.
    CatalogueSources(const QString &folder, Problems &problems);

    const QDir &Folder() const { return folder; }
    const SchemaSource &Schema() const { return schema; }
    /// The rows of a table; no columns and no rows for a table without a file.
    const TableSource &Table(const QString &name) const;
    /// Every `tables/<name>.tsv`, by its table's name.
    const QMap<QString, TableSource> &Tables() const { return tables; }
    /// One for each language code, in the program's order.
    const std::vector<LanguageSource> &Languages() const { return languages; }
    const PriceSource &PriceList() const { return priceList; }
    const QString &Version() const { return version; }

    /// The files below a folder of the sources, relative to the sources with '/', sorted.
    QStringList Files(const QString &subfolder) const;
    /// A file's bytes. Throws FileError when it cannot be read.
    QByteArray Bytes(const QString &file) const;

private:
    QDir folder;
    SchemaSource schema;
    QMap<QString, TableSource> tables;
    std::vector<LanguageSource> languages;
    PriceSource priceList;
    QString version;
};

} // namespace Tesk
