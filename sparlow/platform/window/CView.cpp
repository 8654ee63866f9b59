#include "sparlow/platform/window/CView.h"

#include "sparlow/platform/window/CDocument.h"
#include "sparlow/platform/window/Windows.h"

namespace sparlow {

const CRuntimeClass CView::classCView{"CView", nullptr, &CWnd::classCWnd};
const MessageEntry CView::messageEntries[] = {{WM_PAINT, Handle<CView, &CView::OnPaint>}};
const MessageMap CView::messageMap{&CWnd::messageMap, messageEntries};

CView::~CView() {
  if (document_)
    document_->RemoveView(this);
}

LRESULT CView::OnPaint(WPARAM, LPARAM) {
  WindowProc(WM_ERASEBKGND, 0, 0);
  CClientDC dc(GetSafeHwnd());
  OnDraw(&dc);
  return 0;
}

CDocument::~CDocument() {
  for (CView* const view : views_)
    view->document_ = nullptr;
}

void CDocument::SetTitle(const char* title) {
  title_ = title ? title : "";
}

void CDocument::AddView(CView* view) {
  if (!view || view->document_)
    return;
  view->document_ = this;
  views_.push_back(view);
}

void CDocument::RemoveView(CView* view) {
  if (std::erase(views_, view) != 0)
    view->document_ = nullptr;
}

}  // namespace sparlow
