#pragma once

// clang's thread-safety analysis: the `clang` preset turns a breach into an error, other compilers
// see nothing. https://clang.llvm.org/docs/ThreadSafetyAnalysis.html
#if defined(__clang__)
#define TALMO_THREAD_SAFETY(attribute) __attribute__((attribute))
#else
#define TALMO_THREAD_SAFETY(attribute)
#endif

#define TALMO_CAPABILITY(name) TALMO_THREAD_SAFETY(capability(name))
#define TALMO_SCOPED_CAPABILITY TALMO_THREAD_SAFETY(scoped_lockable)
#define TALMO_GUARDED_BY(mutex) TALMO_THREAD_SAFETY(guarded_by(mutex))
#define TALMO_REQUIRES(...) TALMO_THREAD_SAFETY(requires_capability(__VA_ARGS__))
#define TALMO_EXCLUDES(...) TALMO_THREAD_SAFETY(locks_excluded(__VA_ARGS__))
#define TALMO_ACQUIRE(...) TALMO_THREAD_SAFETY(acquire_capability(__VA_ARGS__))
#define TALMO_RELEASE(...) TALMO_THREAD_SAFETY(release_capability(__VA_ARGS__))
#define TALMO_NO_ANALYSIS TALMO_THREAD_SAFETY(no_thread_safety_analysis)
