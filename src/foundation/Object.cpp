#include "foundation/Object.h"

namespace Core {

Object::~Object() = default;

void Object::Release() {
    if (--references_ == 0)
        OnFinalRelease();
}

void Object::OnFinalRelease() {
    delete this;
}

} // namespace Core
