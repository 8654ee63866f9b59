#pragma once

namespace sparlow::host {

/// What a tab shows its sources in: each in a graph of its own, several in one, or several with
/// masks over them.
enum class ViewKind { single, multi, masks };

/// What a tab of its own may show of a source.
enum class AnalysisKind { derivative, histogram, allan };

/// A mask: the moving average of so many samples, or with none a line at the mean and so many
/// standard deviations above it.
/// Threads: a value.
struct MaskKind {
  unsigned average = 0;
  int deviations = 0;
};

}  // namespace sparlow::host
