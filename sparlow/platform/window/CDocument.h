#pragma once

#include <string>
#include <vector>

#include "sparlow/platform/window/CObject.h"

namespace sparlow {

class CView;

/// What views show, as far as a graph needs it: a title. A host derives its own.
class CDocument : public CObject {
 public:
  ~CDocument() override;

  const std::string& GetTitle() const { return title_; }
  /// Null counts as an empty title.
  virtual void SetTitle(const char* title);

  void AddView(CView* view);
  void RemoveView(CView* view);

 private:
  std::string title_;
  std::vector<CView*> views_;
};

}  // namespace sparlow
