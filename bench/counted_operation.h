// The function that a count of instructions recognises by its name.
#ifndef FILELISTMANAGEMENT_BENCH_COUNTED_OPERATION_H
#define FILELISTMANAGEMENT_BENCH_COUNTED_OPERATION_H

#include <functional>

extern "C" void flm_counted_operation(const std::function<void()>& operation);

#endif
