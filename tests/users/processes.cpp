#include "processes.h"

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <iostream>

namespace catalogador::test {

pid_t startProcess(const std::function<int()>& work) {
    std::cout.flush();
    const pid_t process = fork();
    if (process != 0) return process;
    int status = 1;
    try {
        status = work();
    } catch (const std::exception& error) {
        std::cerr << "process " << getpid() << ": " << error.what() << std::endl;
    }
    std::cout.flush();
    _exit(status);
}

int statusOf(pid_t process) {
    constexpr int signalled = 128;
    int status = 0;
    if (process < 0 || waitpid(process, &status, 0) != process) return 1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : signalled + WTERMSIG(status);
}

int inProcess(const std::function<int()>& work) {
    return statusOf(startProcess(work));
}

void* sharedMemory(std::size_t bytes) {
    void* memory = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::bad_alloc();
    return memory;
}

}  // namespace catalogador::test
