#include "tools/check/rules/Rule.h"

#include <algorithm>

namespace Tobrix::Tools {

void Findings::begin(const Rule &rule)
{
    m_rule = &rule;
    m_begin = m_findings.size();
}

void Findings::add(int at, const QString &message)
{
    add(m_rule->severity, at, message);
}

void Findings::add(Severity severity, int at, const QString &message)
{
    m_findings.push_back({m_rule, severity, at, message});
}

std::vector<Finding> Findings::sorted() const
{
    std::vector<Finding> findings = m_findings;
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.at < b.at; });
    // A column in two views is read twice, and so are its faults.
    const auto isSame = [](const Finding &a, const Finding &b) {
        return a.at == b.at && a.rule == b.rule && a.message == b.message;
    };
    std::vector<Finding> distinct;
    for (const auto &finding : findings) {
        const auto sameAt = std::find_if(distinct.rbegin(), distinct.rend(), [&](const Finding &earlier) {
            return earlier.at != finding.at || isSame(earlier, finding);
        });
        if (sameAt == distinct.rend() || !isSame(*sameAt, finding)) {
            distinct.push_back(finding);
        }
    }
    return distinct;
}

} // namespace Tobrix::Tools
