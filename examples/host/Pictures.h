#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "examples/host/Pane.h"

namespace sparlow::host {

/// The pictures that a run leaves in a folder: which are due, and which were taken.
/// Threads: the window's.
class Pictures {
 public:
  using List = std::vector<std::unique_ptr<Pane>>;

  /// Without a folder none is taken. log must outlive this.
  Pictures(std::optional<std::string> folder, ErrorLog& log);

  /// A measurement has come so far, from 0 to 1: asks for the pictures of its way.
  void Reached(double share, const List& panes);
  /// Asks for a picture of each pane that has samples, named after the stage.
  void Ask(const std::string& stage, const List& panes);
  /// Forgets those that are due.
  void Drop() { due_.clear(); }
  bool Due() const { return !due_.empty(); }
  /// Takes those whose graph is drawn, each as the active one, of the panes that are still there.
  /// True when one was, so that another graph is active than before.
  bool Take(const List& panes);
  /// Prints the names of those that were taken and not printed yet.
  void Print();

 private:
  struct DuePicture {
    const Pane* pane;
    std::string path;
  };

  const std::optional<std::string> folder_;
  ErrorLog& log_;
  std::vector<DuePicture> due_;
  std::vector<std::string> taken_;
  std::size_t stage_ = 0;
};

}  // namespace sparlow::host
