// A COM object held and let go of.
#pragma once

namespace handheld {

template <class Interface>
class CComReference {
  public:
    CComReference() = default;
    ~CComReference() {
        if (m_object) m_object->Release();
    }
    CComReference(const CComReference&) = delete;
    CComReference& operator=(const CComReference&) = delete;

    // For the call that gives the object; nothing may be held yet.
    Interface** Receive() { return &m_object; }
    Interface* Get() const { return m_object; }
    Interface* operator->() const { return m_object; }

  private:
    Interface* m_object = nullptr;
};

}  // namespace handheld
