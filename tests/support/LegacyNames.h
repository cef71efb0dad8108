#pragma once

#include <vector>

/// The section of a legacy document in which an element name has a meaning.
enum class LegacyPart { Document, Header, ProgramView, Column, ListItem, Legend };

/// An element name of the legacy format, and its token in its section.
struct LegacyName
{
    LegacyPart part;
    int token;
    const char *name;
};

inline const std::vector<LegacyName> &legacyNames()
{
    // clang-format off
    static const std::vector<LegacyName> names = {
        {LegacyPart::Document, 1, "TXSYS"},
        {LegacyPart::Document, 2, "TobrixTemplate"},
        {LegacyPart::Document, 3, "SYSTPL"},
        {LegacyPart::Document, 4, "PROGVIEW"},
        {LegacyPart::Document, 5, "SYSCOL"},
        {LegacyPart::Document, 6, "SYSLIST"},
        {LegacyPart::Document, 7, "LegendOfClassification"},
        {LegacyPart::Header, 1, "TPL_PK"},
        {LegacyPart::Header, 2, "TPL_Catalog_REF"},
        {LegacyPart::Header, 3, "TPL_BasedOn_REF"},
        {LegacyPart::Header, 4, "TPL_Key"},
        {LegacyPart::Header, 5, "TPL_Type"},
        {LegacyPart::Header, 6, "TPL_Description"},
        {LegacyPart::Header, 7, "TPL_Version"},
        {LegacyPart::Header, 8, "TPL_Unit"},
        {LegacyPart::Header, 9, "TPL_IsSystem"},
        {LegacyPart::Header, 10, "TPL_Editable"},
        {LegacyPart::Header, 11, "TPL_Updatable"},
        {LegacyPart::Header, 12, "TPL_ListNamePrefix"},
        {LegacyPart::Header, 13, "TPL_DefaultSecClassName"},
        {LegacyPart::Header, 14, "TPL_DefaultSecColorField"},
        {LegacyPart::Header, 15, "TPL_SortOrder"},
        {LegacyPart::ProgramView, 1, "PV_PK"},
        {LegacyPart::ProgramView, 2, "PV_Key"},
        {LegacyPart::ProgramView, 3, "PV_Description"},
        {LegacyPart::Column, 1, "COL_PK"},
        {LegacyPart::Column, 2, "COL_Template_FK"},
        {LegacyPart::Column, 3, "COL_ProgView_FK"},
        {LegacyPart::Column, 4, "COL_Bound_TableDir_REF"},
        {LegacyPart::Column, 5, "COL_Bound_Column"},
        {LegacyPart::Column, 6, "COL_Caption"},
        {LegacyPart::Column, 7, "COL_ToolTip"},
        {LegacyPart::Column, 8, "COL_GroupLevel"},
        {LegacyPart::Column, 9, "COL_DataType"},
        {LegacyPart::Column, 10, "COL_RangeFrom"},
        {LegacyPart::Column, 11, "COL_RangeTo"},
        {LegacyPart::Column, 12, "COL_Steps"},
        {LegacyPart::Column, 13, "COL_Unit"},
        {LegacyPart::Column, 14, "COL_StateBits"},
        {LegacyPart::Column, 15, "COL_Visible"},
        {LegacyPart::Column, 16, "COL_ReadOnly"},
        {LegacyPart::Column, 17, "COL_Mandatory"},
        {LegacyPart::Column, 18, "COL_Virtual"},
        {LegacyPart::Column, 19, "COL_ValueTransfer"},
        {LegacyPart::Column, 20, "COL_EvalObjSymbol"},
        {LegacyPart::Column, 21, "COL_EvalObjColor"},
        {LegacyPart::Column, 22, "COL_DataSourceType"},
        {LegacyPart::Column, 23, "COL_DataSource"},
        {LegacyPart::Column, 24, "COL_ControlType"},
        {LegacyPart::Column, 25, "COL_TextAlign"},
        {LegacyPart::Column, 26, "COL_Width"},
        {LegacyPart::Column, 27, "COL_ForeColor"},
        {LegacyPart::Column, 28, "COL_BackColor"},
        {LegacyPart::Column, 29, "COL_SortOrder"},
        {LegacyPart::Column, 30, "COL_Length"},
        {LegacyPart::Column, 31, "TDIR_Key"},
        {LegacyPart::Column, 32, "COL_DisplayFmt"},
        {LegacyPart::Column, 33, "COL_Default"},
        {LegacyPart::Column, 34, "COL_Precision"},
        {LegacyPart::ListItem, 1, "LIST_PK"},
        {LegacyPart::ListItem, 2, "LIST_Name"},
        {LegacyPart::ListItem, 3, "LIST_Item"},
        {LegacyPart::ListItem, 4, "LIST_Caption"},
        {LegacyPart::ListItem, 5, "LIST_Comment"},
        {LegacyPart::ListItem, 6, "LIST_Internal"},
        {LegacyPart::ListItem, 7, "LIST_SortOrder"},
        {LegacyPart::Legend, 1, "class"},
        {LegacyPart::Legend, 2, "legendA"},
        {LegacyPart::Legend, 3, "legendB"},
        {LegacyPart::Legend, 4, "Section"},
        {LegacyPart::Legend, 5, "Lateral"},
    };
    // clang-format on
    return names;
}
