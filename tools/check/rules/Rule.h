#pragma once

#include <QString>

#include <vector>

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

/// The severity of a finding.
enum class Severity {
    Note,    ///< possibly intended
    Warning, ///< probably not intended
    Error    ///< something is lost for certain
};

/// The formats that a rule is about.
enum class Formats { Current, Legacy, Both };

struct Rule
{
    const char *id;
    Severity severity;
    Formats formats;
    void (*check)(const CheckedFile &file, Findings &findings);
    const char *summary;
    const char *explanation; ///< what happens at load, and how to fix it
    const char *wrong;
    const char *right;
    bool silencesRest = false; ///< whether a violation prevents all other rules

    bool appliesTo(bool isCurrent) const
    {
        return formats == Formats::Both || (formats == Formats::Current) == isCurrent;
    }
};

/// Something that a rule has found.
struct Finding
{
    const Rule *rule = nullptr;
    Severity severity = Severity::Note;
    int at = 0; ///< offset into the file's text
    QString message;
};

/// The findings in one file.
class Findings
{
public:
    /// Starts a rule, which owns all findings added from now on.
    void begin(const Rule &rule);

    /// Adds a finding with the rule's severity or another one. A rule reports the same finding at an offset
    /// only once.
    void add(int at, const QString &message);
    void add(Severity severity, int at, const QString &message);

    /// Whether the current rule has found anything.
    bool hasFound() const { return m_findings.size() > m_begin; }
    /// Discards the findings of the current rule.
    void drop() { m_findings.resize(m_begin); }

    /// All of them, in the order of the file.
    std::vector<Finding> sorted() const;

private:
    const Rule *m_rule = nullptr;
    std::vector<Finding> m_findings;
    std::size_t m_begin = 0;
};

} // namespace Tobrix::Tools
