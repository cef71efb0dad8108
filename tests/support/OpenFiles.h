#pragma once

#include <QDir>
#include <QFileInfo>
#include <QString>

/// The number of this process's file descriptors that refer to a file.
inline int openDescriptorsOf(const QString &path)
{
    const QString file = QFileInfo(path).canonicalFilePath();
    const auto descriptors = QDir(QStringLiteral("/proc/self/fd"))
                                 .entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
    int count = 0;
    for (const auto &descriptor : descriptors) {
        if (descriptor.symLinkTarget() == file) {
            ++count;
        }
    }
    return count;
}
