#pragma once

#include "support/TemporaryTemplate.h"

#include <QByteArray>

/// A legacy document with one view, "v1", and its columns.
inline QByteArray legacyView(const QByteArray &columns)
{
    return legacyDocument("<PROGVIEW><PV_PK>v1</PV_PK><PV_Key>Main</PV_Key></PROGVIEW>" + columns);
}

/// A column of the legacy view above.
inline QByteArray legacyColumn(const QByteArray &dataType, const QByteArray &elements = QByteArray())
{
    return "<SYSCOL><COL_ProgView_FK>v1</COL_ProgView_FK><COL_DataType>" + dataType + "</COL_DataType>" +
           elements + "</SYSCOL>";
}

/// A document of the current format with one view, "v1", and its columns.
inline QByteArray currentView(const QByteArray &columns)
{
    return currentDocument("<View Id=\"v1\" Name=\"Main\">" + columns + "</View>");
}
