#pragma once

#include <QString>

#include <vector>

namespace Tobrix::Tools {

class CheckedFile;
class Findings;

/// How bad a finding is.
enum class Severity {
    Note,    ///< may well be meant
    Warning, ///< hardly meant
    Error    ///< something is lost for certain
};

/// The formats that a rule is about.
enum class Formats { Current, Legacy, Both };

/// One rule of the checker.
struct Rule
{
    const char *id;
    Severity severity;
    Formats formats;
    void (*check)(const CheckedFile &file, Findings &findings);
    const char *summary;
    const char *explanation; ///< what happens at load, and what to do about it
    const char *wrong;
    const char *right;
    bool silencesRest = false; ///< whether nothing else can be said of a file that breaks it

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

/// What rules find in one file.
class Findings
{
public:
    /// Begins with a rule: what is added from now on is its own.
    void begin(const Rule &rule);

    /// Adds a finding, of the rule's severity or another one. What a rule has said of a place it does not say
    /// a second time.
    void add(int at, const QString &message);
    void add(Severity severity, int at, const QString &message);

    /// Whether the current rule has found anything.
    bool hasFound() const { return m_findings.size() > m_begin; }
    /// Forgets what the current rule has found.
    void drop() { m_findings.resize(m_begin); }

    /// All of them, in the order of the file.
    std::vector<Finding> sorted() const;

private:
    const Rule *m_rule = nullptr;
    std::vector<Finding> m_findings;
    std::size_t m_begin = 0;
};

} // namespace Tobrix::Tools
