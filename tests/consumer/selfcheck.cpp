#include <forme/checks/SelfChecks.h>

#include <initializer_list>

int main() {
    bool passed = true;
    for (const auto test :
         {testBuffer, testFormBuffer, testListBuffer, testTableBuffer, testXmlValidator})
        passed = test() && passed;
    return passed ? 0 : 1;
}
