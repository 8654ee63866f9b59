#pragma once

namespace sparlow::bench {

// Each registers the benchmarks of one topic, and its lines of the table.

void RegisterMemory();
void RegisterRender();
void RegisterAppend();
void RegisterStatistics();
void RegisterCursor();
void RegisterPainting();
void RegisterFrame();
void RegisterActions();
void RegisterLive();

}  // namespace sparlow::bench
