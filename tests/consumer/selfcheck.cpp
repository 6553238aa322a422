#include <forme/checks/SelfChecks.h>
#include <forme/document/history/EditActionStack.h>

#include <initializer_list>

int main() {
    bool passed = true;
    for (const auto test :
         {testBuffer, testFormBuffer, testListBuffer, testTableBuffer, testXmlValidator})
        passed = test() && passed;
    EditActionStack history(2);
    for (const wchar_t* text : {L"a", L"b", L"c"})
        history.addAction(EditAction(EditAction::EditInsert, 0, -1, -1, text));
    history.getUndoAction();
    history.clearRedoActionList();
    history.getUndoAction();
    passed = passed && !history.hasMoreUndoActions(); // of three, the limit let the oldest go
    return passed ? 0 : 1;
}
