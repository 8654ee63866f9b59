#pragma once

#include "sparlow/platform/window/CWnd.h"

namespace sparlow {

class CDocument;

/// A window that shows a document. It deletes itself when its window has ended, so it is made with
/// new, in general through its run-time class.
class CView : public CWnd {
 public:
  CDocument* GetDocument() const { return document_; }

  static const CRuntimeClass classCView;
  const CRuntimeClass* GetRuntimeClass() const override { return &classCView; }

 protected:
  ~CView() override;

  /// Paints the window; dc draws on the window's surface.
  virtual void OnDraw(CDC* dc) = 0;
  void PostNcDestroy() override { delete this; }
  const MessageMap* GetMessageMap() const override { return &messageMap; }

  static const MessageMap messageMap;

 private:
  friend class CDocument;
  LRESULT OnPaint(WPARAM, LPARAM);
  static const MessageEntry messageEntries[];

  CDocument* document_ = nullptr;
};

}  // namespace sparlow
