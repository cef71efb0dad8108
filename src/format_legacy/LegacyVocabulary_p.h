#pragma once

#include "format_legacy/CTemplateTokenizer.h"

#include <QLatin1String>

namespace Tobrix::Templates {

/// An element name of the legacy format with its token in one section.
template <typename Token>
struct LegacyElement
{
    QLatin1String name;
    Token token;
};

// clang-format off

/// Containers and sections of a document.
inline constexpr LegacyElement<CTemplateTokenizer::TemplateToken> templateElements[] = {
    {QLatin1String("TXSYS"), CTemplateTokenizer::TXSYS},
    {QLatin1String("TobrixTemplate"), CTemplateTokenizer::TobrixTemplate},
    {QLatin1String("SYSTPL"), CTemplateTokenizer::SYSTPL},
    {QLatin1String("PROGVIEW"), CTemplateTokenizer::PROGVIEW},
    {QLatin1String("SYSCOL"), CTemplateTokenizer::SYSCOL},
    {QLatin1String("SYSLIST"), CTemplateTokenizer::SYSLIST},
    {QLatin1String("LegendOfClassification"), CTemplateTokenizer::LegendOfClassification},
};

/// Elements of the template's header.
inline constexpr LegacyElement<CTemplateTokenizer::TemplateInfoToken> templateInfoElements[] = {
    {QLatin1String("TPL_PK"), CTemplateTokenizer::TPL_PK},
    {QLatin1String("TPL_Catalog_REF"), CTemplateTokenizer::TPL_Catalog_REF},
    {QLatin1String("TPL_BasedOn_REF"), CTemplateTokenizer::TPL_BasedOn_REF},
    {QLatin1String("TPL_Key"), CTemplateTokenizer::TPL_Key},
    {QLatin1String("TPL_Type"), CTemplateTokenizer::TPL_Type},
    {QLatin1String("TPL_Description"), CTemplateTokenizer::TPL_Description},
    {QLatin1String("TPL_Version"), CTemplateTokenizer::TPL_Version},
    {QLatin1String("TPL_Unit"), CTemplateTokenizer::TPL_Unit},
    {QLatin1String("TPL_IsSystem"), CTemplateTokenizer::TPL_IsSystem},
    {QLatin1String("TPL_Editable"), CTemplateTokenizer::TPL_Editable},
    {QLatin1String("TPL_Updatable"), CTemplateTokenizer::TPL_Updatable},
    {QLatin1String("TPL_ListNamePrefix"), CTemplateTokenizer::TPL_ListNamePrefix},
    {QLatin1String("TPL_DefaultSecClassName"), CTemplateTokenizer::TPL_DefaultSecClassName},
    {QLatin1String("TPL_DefaultSecColorField"), CTemplateTokenizer::TPL_DefaultSecColorField},
    {QLatin1String("TPL_SortOrder"), CTemplateTokenizer::TPL_SortOrder},
};

/// Elements of a program view.
inline constexpr LegacyElement<CTemplateTokenizer::ProgramViewToken> programViewElements[] = {
    {QLatin1String("PV_PK"), CTemplateTokenizer::PV_PK},
    {QLatin1String("PV_Key"), CTemplateTokenizer::PV_Key},
    {QLatin1String("PV_Description"), CTemplateTokenizer::PV_Description},
};

/// Elements of a column.
inline constexpr LegacyElement<CTemplateTokenizer::ColumnToken> columnElements[] = {
    {QLatin1String("COL_PK"), CTemplateTokenizer::COL_PK},
    {QLatin1String("COL_Template_FK"), CTemplateTokenizer::COL_Template_FK},
    {QLatin1String("COL_ProgView_FK"), CTemplateTokenizer::COL_ProgView_FK},
    {QLatin1String("COL_Bound_TableDir_REF"), CTemplateTokenizer::COL_Bound_TableDir_REF},
    {QLatin1String("COL_Bound_Column"), CTemplateTokenizer::COL_Bound_Column},
    {QLatin1String("COL_Caption"), CTemplateTokenizer::COL_Caption},
    {QLatin1String("COL_ToolTip"), CTemplateTokenizer::COL_ToolTip},
    {QLatin1String("COL_GroupLevel"), CTemplateTokenizer::COL_GroupLevel},
    {QLatin1String("COL_DataType"), CTemplateTokenizer::COL_DataType},
    {QLatin1String("COL_RangeFrom"), CTemplateTokenizer::COL_RangeFrom},
    {QLatin1String("COL_RangeTo"), CTemplateTokenizer::COL_RangeTo},
    {QLatin1String("COL_Steps"), CTemplateTokenizer::COL_Steps},
    {QLatin1String("COL_Unit"), CTemplateTokenizer::COL_Unit},
    {QLatin1String("COL_StateBits"), CTemplateTokenizer::COL_StateBits},
    {QLatin1String("COL_Visible"), CTemplateTokenizer::COL_Visible},
    {QLatin1String("COL_ReadOnly"), CTemplateTokenizer::COL_ReadOnly},
    {QLatin1String("COL_Mandatory"), CTemplateTokenizer::COL_Mandatory},
    {QLatin1String("COL_Virtual"), CTemplateTokenizer::COL_Virtual},
    {QLatin1String("COL_ValueTransfer"), CTemplateTokenizer::COL_ValueTransfer},
    {QLatin1String("COL_EvalObjSymbol"), CTemplateTokenizer::COL_EvalObjSymbol},
    {QLatin1String("COL_EvalObjColor"), CTemplateTokenizer::COL_EvalObjColor},
    {QLatin1String("COL_DataSourceType"), CTemplateTokenizer::COL_DataSourceType},
    {QLatin1String("COL_DataSource"), CTemplateTokenizer::COL_DataSource},
    {QLatin1String("COL_ControlType"), CTemplateTokenizer::COL_ControlType},
    {QLatin1String("COL_TextAlign"), CTemplateTokenizer::COL_TextAlign},
    {QLatin1String("COL_Width"), CTemplateTokenizer::COL_Width},
    {QLatin1String("COL_ForeColor"), CTemplateTokenizer::COL_ForeColor},
    {QLatin1String("COL_BackColor"), CTemplateTokenizer::COL_BackColor},
    {QLatin1String("COL_SortOrder"), CTemplateTokenizer::COL_SortOrder},
    {QLatin1String("COL_Length"), CTemplateTokenizer::COL_Length},
    {QLatin1String("TDIR_Key"), CTemplateTokenizer::TDIR_Key},
    {QLatin1String("COL_DisplayFmt"), CTemplateTokenizer::COL_DisplayFmt},
    {QLatin1String("COL_Default"), CTemplateTokenizer::COL_Default},
    {QLatin1String("COL_Precision"), CTemplateTokenizer::COL_Precision},
};

/// Elements of a value-list item.
inline constexpr LegacyElement<CTemplateTokenizer::ListItemToken> listItemElements[] = {
    {QLatin1String("LIST_PK"), CTemplateTokenizer::LIST_PK},
    {QLatin1String("LIST_Name"), CTemplateTokenizer::LIST_Name},
    {QLatin1String("LIST_Item"), CTemplateTokenizer::LIST_Item},
    {QLatin1String("LIST_Caption"), CTemplateTokenizer::LIST_Caption},
    {QLatin1String("LIST_Comment"), CTemplateTokenizer::LIST_Comment},
    {QLatin1String("LIST_Internal"), CTemplateTokenizer::LIST_Internal},
    {QLatin1String("LIST_SortOrder"), CTemplateTokenizer::LIST_SortOrder},
};

/// Elements of the classification legends.
inline constexpr LegacyElement<CTemplateTokenizer::LegendToken> legendElements[] = {
    {QLatin1String("class"), CTemplateTokenizer::LegendClass},
    {QLatin1String("legendA"), CTemplateTokenizer::LegendA},
    {QLatin1String("legendB"), CTemplateTokenizer::LegendB},
    {QLatin1String("Section"), CTemplateTokenizer::Section},
    {QLatin1String("Lateral"), CTemplateTokenizer::Lateral},
};

// clang-format on

} // namespace Tobrix::Templates
