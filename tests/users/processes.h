#pragma once
#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <new>

namespace catalogador::test {

/// Starts a process that does the work and ends with the status it gives, or with 1 after an
/// exception, whose text goes to the standard error. Gives its id.
pid_t startProcess(const std::function<int()>& work);
/// Waits for it; gives its exit status, 128 + the signal that ended it.
int statusOf(pid_t process);
/// Both, one after the other.
int inProcess(const std::function<int()>& work);

/// Memory that this process and those that it starts see in common, until they end.
void* sharedMemory(std::size_t bytes);

template <class T>
T& shared() {
    return *new (sharedMemory(sizeof(T))) T();
}

}  // namespace catalogador::test
