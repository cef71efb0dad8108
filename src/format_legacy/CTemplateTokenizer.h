#pragma once

#include "TobrixTemplatesExport.h"

#include <QHash>
#include <QStringRef>

#include <memory>

/// Converts the element names of the legacy format to tokens. Each section has its own table, and names are
/// compared exactly.
///
/// Look-ups copy no text and are thread-safe.
class TOBRIX_TEMPLATES_EXPORT CTemplateTokenizer
{
public:
    /// Elements at the top level of a document.
    enum TemplateToken : int {
        UnknownTemplateElement = 0,
        TXSYS = 1,
        TobrixTemplate = 2,
        SYSTPL = 3,
        PROGVIEW = 4,
        SYSCOL = 5,
        SYSLIST = 6,
        LegendOfClassification = 7
    };

    /// Elements of the template's header.
    enum TemplateInfoToken : int {
        UnknownTemplateInfoElement = 0,
        TPL_PK = 1,
        TPL_Catalog_REF = 2,
        TPL_BasedOn_REF = 3,
        TPL_Key = 4,
        TPL_Type = 5,
        TPL_Description = 6,
        TPL_Version = 7,
        TPL_Unit = 8,
        TPL_IsSystem = 9,
        TPL_Editable = 10,
        TPL_Updatable = 11,
        TPL_ListNamePrefix = 12,
        TPL_DefaultSecClassName = 13,
        TPL_DefaultSecColorField = 14,
        TPL_SortOrder = 15
    };

    /// Elements of a program view.
    enum ProgramViewToken : int { UnknownProgramViewElement = 0, PV_PK = 1, PV_Key = 2, PV_Description = 3 };

    /// Elements of a column.
    enum ColumnToken : int {
        UnknownColumnElement = 0,
        COL_PK = 1,
        COL_Template_FK = 2,
        COL_ProgView_FK = 3,
        COL_Bound_TableDir_REF = 4,
        COL_Bound_Column = 5,
        COL_Caption = 6,
        COL_ToolTip = 7,
        COL_GroupLevel = 8,
        COL_DataType = 9,
        COL_RangeFrom = 10,
        COL_RangeTo = 11,
        COL_Steps = 12,
        COL_Unit = 13,
        COL_StateBits = 14,
        COL_Visible = 15,
        COL_ReadOnly = 16,
        COL_Mandatory = 17,
        COL_Virtual = 18,
        COL_ValueTransfer = 19,
        COL_EvalObjSymbol = 20,
        COL_EvalObjColor = 21,
        COL_DataSourceType = 22,
        COL_DataSource = 23,
        COL_ControlType = 24,
        COL_TextAlign = 25,
        COL_Width = 26,
        COL_ForeColor = 27,
        COL_BackColor = 28,
        COL_SortOrder = 29,
        COL_Length = 30,
        TDIR_Key = 31,
        COL_DisplayFmt = 32,
        COL_Default = 33,
        COL_Precision = 34
    };

    /// Elements of a value-list item.
    enum ListItemToken : int {
        UnknownListItemElement = 0,
        LIST_PK = 1,
        LIST_Name = 2,
        LIST_Item = 3,
        LIST_Caption = 4,
        LIST_Comment = 5,
        LIST_Internal = 6,
        LIST_SortOrder = 7
    };

    /// Elements of the classification legends.
    enum LegendToken : int {
        UnknownLegendElement = 0,
        LegendClass = 1,
        LegendA = 2,
        LegendB = 3,
        Section = 4,
        Lateral = 5
    };

    /// Builds the tables. The library has one tokenizer for all look-ups.
    CTemplateTokenizer();
    /// Frees the tables.
    ~CTemplateTokenizer();

    /// The token of a top-level element.
    /// @param name the element's name as the XML reader reports it
    /// @return 0 for an unknown name
    static TemplateToken stringToTemplateToken(const QStringRef &name);

    /// The token of an element of the header.
    /// @param name the element's name as the XML reader reports it
    /// @return 0 for an unknown name
    static TemplateInfoToken stringToTemplateInfoToken(const QStringRef &name);

    /// The token of an element of a program view.
    /// @param name the element's name as the XML reader reports it
    /// @return 0 for an unknown name
    static ProgramViewToken stringToProgramViewToken(const QStringRef &name);

    /// The token of an element of a column.
    /// @param name the element's name as the XML reader reports it
    /// @return 0 for an unknown name
    static ColumnToken stringToColumnToken(const QStringRef &name);

    /// The token of an element of a value-list item.
    /// @param name the element's name as the XML reader reports it
    /// @return 0 for an unknown name
    static ListItemToken stringToListItemToken(const QStringRef &name);

    /// The token of an element of the legends.
    /// @param name the element's name as the XML reader reports it
    /// @return 0 for an unknown name
    static LegendToken stringToLegendToken(const QStringRef &name);

private:
    Q_DISABLE_COPY(CTemplateTokenizer)

    template <typename Token>
    using Table = std::unique_ptr<const QHash<QStringRef, Token>>;

    Table<TemplateToken> m_templateTokens;
    Table<TemplateInfoToken> m_templateInfoTokens;
    Table<ProgramViewToken> m_programViewTokens;
    Table<ColumnToken> m_columnTokens;
    Table<ListItemToken> m_listItemTokens;
    Table<LegendToken> m_legendTokens;

    static const CTemplateTokenizer m_tokenizer;
};
