// The interpreter on the three workloads LISP applications lean on:
// recursive calls, a tight loop with setq, and a long list. And the cost of
// one call into a module and back.
#include <benchmark/benchmark.h>

#include "host/app/applications.h"
#include "host/lisp/builtins.h"
#include "host/lisp/eval.h"
#include "host/lisp/reader.h"
#include "host/lisp/session.h"
#include "platform/acedads.h"

namespace {

using namespace lumo::lisp;

Ref RunText(const char* text) {
    InitInterpreter();
    Reader reader(text);
    Ref form, value;
    while (reader.Next(form)) value = Eval(form);
    return value;
}

void Fib25(benchmark::State& state) {
    RunText("(defun fib (n) (if (< n 2) n (+ (fib (- n 1)) (fib (- n 2)))))");
    for (auto _ : state) benchmark::DoNotOptimize(RunText("(fib 25)"));
}
BENCHMARK(Fib25)->Unit(benchmark::kMillisecond);

void WhileLoop1M(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(RunText("(setq i 0 s 0.0) (while (< i 1000000) (setq s (+ s (* i 0.5)) i (1+ i))) s"));
}
BENCHMARK(WhileLoop1M)->Unit(benchmark::kMillisecond);

void List100k(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(RunText(
            "(setq l nil i 0) (repeat 100000 (setq l (cons i l) i (1+ i)))"
            "(setq s 0) (foreach e l (setq s (+ s e))) (length (reverse (mapcar '1+ l)))"));
}
BENCHMARK(List100k)->Unit(benchmark::kMillisecond);

AcRx::AppRetCode EchoEntry(AcRx::AppMsgCode msg, void*) {
    if (msg == AcRx::kLoadDwgMsg) acedDefun("bench_echo", 0);
    if (msg == AcRx::kInvkSubrMsg) acedRetList(acedGetArgs());
    return AcRx::kRetOK;
}

void ModuleCall(benchmark::State& state) {
    static auto* app = [] {
        InitInterpreter();
        auto* a = lumo::host::AddApplication("bench", EchoEntry);
        lumo::host::SendAppMessage(*a, AcRx::kLoadDwgMsg);
        return a;
    }();
    (void)app;
    Ref call = ReadOne("(bench_echo 1 2.5 \"text\" '(1.0 2.0 3.0) '(8 . \"WALL\"))");
    for (auto _ : state) benchmark::DoNotOptimize(Eval(call));
}
BENCHMARK(ModuleCall)->Unit(benchmark::kMicrosecond);

}  // namespace
