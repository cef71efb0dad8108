// Qt as Debian ships it is not built for the thread sanitizer, which therefore does not see that Qt's locks
// order what threads do, and would call everything a race that they guard. These functions stand before Qt's
// own of the same names in the order in which a program's symbols are looked up: they call Qt's, and tell the
// sanitizer.

#include <QMutex>
#include <QReadWriteLock>

#include <dlfcn.h>

extern "C" void __tsan_acquire(void *address);
extern "C" void __tsan_release(void *address);

namespace {

using Operation = void (*)(void *lock);

Operation operationOfQt(const char *name)
{
    void *found = ::dlsym(RTLD_NEXT, name);
    if (!found) {
        qFatal("Qt has no %s", name);
    }
    return reinterpret_cast<Operation>(found);
}

void lock(Operation operation, void *lock)
{
    operation(lock);
    __tsan_acquire(lock);
}

void unlock(Operation operation, void *lock)
{
    __tsan_release(lock);
    operation(lock);
}

} // namespace

void QReadWriteLock::lockForRead()
{
    static const Operation operation = operationOfQt("_ZN14QReadWriteLock11lockForReadEv");
    ::lock(operation, this);
}

void QReadWriteLock::lockForWrite()
{
    static const Operation operation = operationOfQt("_ZN14QReadWriteLock12lockForWriteEv");
    ::lock(operation, this);
}

void QReadWriteLock::unlock()
{
    static const Operation operation = operationOfQt("_ZN14QReadWriteLock6unlockEv");
    ::unlock(operation, this);
}

void QMutex::lock()
{
    static const Operation operation = operationOfQt("_ZN6QMutex4lockEv");
    ::lock(operation, this);
}

void QMutex::unlock()
{
    static const Operation operation = operationOfQt("_ZN6QMutex6unlockEv");
    ::unlock(operation, this);
}
