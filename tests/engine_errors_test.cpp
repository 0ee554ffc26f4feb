// Which failures the engine answers and which it lets through: its own errors
// (store, records) become status words and run results; an allocation that
// fails anywhere leaves as std::bad_alloc and never reads as "not found" or as
// an engine message. Allocations are made to fail one at a time, at every
// point of a run and of each query in turn.
#include <atomic>
#include <cstdlib>
#include <functional>
#include <new>

#include "support/engine.h"

namespace {

// Allocations still allowed before one fails; -1: none fails.
std::atomic<long> g_allocationsLeft{-1};

}  // namespace

void* operator new(std::size_t n) {
  long left = g_allocationsLeft.load(std::memory_order_relaxed);
  if (left == 0) {
    g_allocationsLeft = -1;  // one failure, then allocation works again
    throw std::bad_alloc();
  }
  if (left > 0) g_allocationsLeft = left - 1;
  if (void* p = std::malloc(n ? n : 1)) return p;
  throw std::bad_alloc();
}
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"  // the pair above is malloc and free
#endif
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

using namespace korvane::hosts;
using namespace korvane::engine;

namespace {

class EngineErrors : public korvane::testing::EngineTest {
 protected:
  // Calls f with its k-th allocation failing, for k = 0, step, 2 step, ...
  // until f makes fewer allocations than that; then f must give its normal
  // answer (true). Every failure must leave f as std::bad_alloc. Returns how
  // many failures were injected.
  template <class F>
  int failEachAllocation(const std::string& what, F f, long step = 1) {
    for (long k = 0;; k += step) {
      g_allocationsLeft = k;
      bool threw = false, answer = false;
      try {
        answer = f();
      } catch (const std::bad_alloc&) {
        threw = true;
      }
      if (g_allocationsLeft.exchange(-1) != -1) {  // no allocation failed
        EXPECT_TRUE(answer) << what;
        return static_cast<int>(k / step);
      }
      EXPECT_TRUE(threw) << what << ": allocation " << k << " failed and the engine answered";
    }
  }
};

const char* const kInput =
    "crea,F\n"
    "geni,M\n001FORMAT(3F12.3)\n080,A,,,,,3,,,1\n"
    "       1.000       2.000       3.000\n       4.000       6.000       3.000\n"
    "       7.000      10.000       3.000\n       0.000       0.000       0.000\n999\n"
    "over,out.txt,genio\ngeni,M\n081\n999\nover,,genio\n"
    "edit,M\n005,3=A,6=2\n999\ndele,F\n";

}  // namespace

TEST_F(EngineErrors, AllocationFailureInARunLeavesAsBadAlloc) {
#ifdef _WIN32
  GTEST_SKIP() << "MinGW's C++ library absorbs some allocation failures inside std::filesystem "
                  "path operations on Windows: weakly_canonical and path::lexically_normal "
                  "return as if nothing failed, with no exception and no error code; the run "
                  "uses them to tell a GENIO output file from the engine's own files";
#endif
  project_.write("run.txt", kInput);
  std::string error;
  int injected = failEachAllocation(
      "run",
      [&] {
        MxRunResult r = engine_->configuration().run("input", project_.path("run.txt"));
        error = r.error;
        return r.ok();
      },
      1);
  EXPECT_EQ(error, "");
  EXPECT_GT(injected, 20);
  // The runs cut short left the store whole: the last run worked as usual.
  EXPECT_EQ(load("M", "A").points.size(), 2u);
  EXPECT_FALSE(engine_->modelExists("F"));
}

TEST_F(EngineErrors, AllocationFailureInAQueryLeavesAsBadAlloc) {
  ASSERT_EQ(run(kInput), "");
  const std::string model = "a model name longer than short strings";
  ASSERT_EQ(run("crea," + model + "\ngeni,M\n999\n"), "");
  MxDataAccess& da = engine_->dataAccess();
  PointRecord rec;
  std::int32_t count = 0;
  std::string text;
  struct Query {
    const char* name;
    std::function<bool()> call;  // true when the answer is the expected one
  };
  const std::vector<Query> queries = {
      {"modelExists", [&] { return engine_->configuration().modelExists(model); }},
      {"stringInfo",
       [&] { return da.stringInfo("M", "A", count) == MxStatus::kFound && count == 2; }},
      {"point",
       [&] { return da.point("M", "A", 2, rec) == MxStatus::kFound && rec.num[0] == 4.0; }},
      {"record", [&] { return da.record(2, rec) == MxStatus::kFound && rec.num[1] == 6.0; }},
      {"labelCount",
       [&] { return da.labelCount("M", "A", count) == MxStatus::kFound && count == 1; }},
      {"nextLabel",
       [&] { return da.nextLabel("M", "A", text) == MxStatus::kFound && text == "A000"; }},
      {"library",
       [&] {
         auto m = engine_->library().model("M");
         return m && m->stringLabels().size() == 1 && m->string("A")->points().size() == 2;
       }},
      {"models", [&] { return engine_->models().size() == 2; }},
      {"export",
       [&] {
         int lines = 0;
         engine_->exportGenio("M", [&](const std::string&) { ++lines; });
         return lines > 4;
       }},
  };
  int injected = 0;  // some queries allocate nothing at all
  for (const Query& q : queries) injected += failEachAllocation(q.name, q.call);
  EXPECT_GT(injected, 50);
}
