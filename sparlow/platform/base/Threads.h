#pragma once

namespace sparlow {

/// What a worker runs; the result is the thread's exit code, which nobody reads.
using AFX_THREADPROC = unsigned (*)(void* parameter);

/// Starts a detached worker at normal priority. False when the system can't start a thread: nothing
/// runs then and the parameter stays the caller's.
/// Threads: any.
bool AfxBeginThread(AFX_THREADPROC proc, void* parameter);

/// Replaces the way in which AfxBeginThread starts threads, for a host with a thread pool or a test
/// with a system that refuses; null brings the ordinary way back.
using ThreadStarter = bool (*)(AFX_THREADPROC proc, void* parameter);
void SetThreadStarter(ThreadStarter starter);

}  // namespace sparlow
