#pragma once

namespace sparlow {

class CObject;

/// Run-time class information: a class's name, how to make an object of it, and its base class.
/// Threads: constant; any.
struct CRuntimeClass {
  const char* className;
  CObject* (*create)();  ///< null for a class that can't be made dynamically
  const CRuntimeClass* base;

  /// A new object, or null for a class that can't be made dynamically.
  CObject* CreateObject() const;
  bool IsDerivedFrom(const CRuntimeClass* other) const;
};

/// The root of windows and documents: objects that know their class at run time.
class CObject {
 public:
  CObject() = default;
  CObject(const CObject&) = delete;
  CObject& operator=(const CObject&) = delete;
  virtual ~CObject() = default;

  virtual const CRuntimeClass* GetRuntimeClass() const;
  bool IsKindOf(const CRuntimeClass* other) const {
    return GetRuntimeClass()->IsDerivedFrom(other);
  }

  static const CRuntimeClass classCObject;
};

}  // namespace sparlow
