#pragma once

/// Which threads may use a class is a rule of its folder. A class that differs has a line
/// `Threads:`, and so has a group or an operation that differs from its class, unless its text
/// names the thread.
///
/// | Folder below sparlow | Threads |
/// |---|---|
/// | platform/base, axis, data, view | any, each with its own objects |
/// | platform/paint | the one that paints, in general the window's |
/// | platform/window, platform/qt, graph, multi, ui | the window's |
///
/// In every folder a struct is a value, and any thread may have its own; any thread may call a
/// function that works on its arguments alone. A class inside another goes by the rule of that one.
/// The window's thread is the one that has called UiThread::Attach.
namespace sparlow {

/// What a worker runs; the result is the thread's exit code, which nobody reads.
using AFX_THREADPROC = unsigned (*)(void* parameter);

/// Starts a detached worker at normal priority. Returns false when the system can't start a thread:
/// nothing runs then and the parameter stays the caller's.
bool AfxBeginThread(AFX_THREADPROC proc, void* parameter);

/// Replaces the way in which AfxBeginThread starts threads, for a host with a thread pool or a test
/// with a system that refuses; null brings the ordinary way back.
using ThreadStarter = bool (*)(AFX_THREADPROC proc, void* parameter);
void SetThreadStarter(ThreadStarter starter);

}  // namespace sparlow
