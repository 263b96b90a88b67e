#pragma once

#include "core/ResultTable.h"
#include "support/Files.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace Tesk::Database {

/// A table of a version 2 database: its CREATE TABLE statement, name and rows. Values are in the
/// code page; a null QByteArray stands for NULL.
struct Version2Table
{
    QByteArray sql;
    QByteArray name;
    QList<QByteArrayList> rows;
};

void WriteVersion2(const QString &fileName, const QList<Version2Table> &tables);

/// A version 3 database that these statements make.
void WriteVersion3(const QString &fileName, const QByteArray &sql);

QString SampleFile(const QString &name);

QStringList NamesOf(const ResultTable &table);
/// The texts of a column's rows, from the first data row; NULL is "NULL".
QStringList ColumnOf(const ResultTable &table, int column = 0);
/// The rows, their cells joined by "|".
QStringList RowsOf(const ResultTable &table);

} // namespace Tesk::Database
