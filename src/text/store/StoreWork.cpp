#include "text/store/StoreWork.h"

StoreWork& StoreWork::ofThisThread() noexcept {
    static thread_local StoreWork work;
    return work;
}
