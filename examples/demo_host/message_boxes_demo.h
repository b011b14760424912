// The message box of each type as the demo host uses it: the question it asks and
// what the host does with the answer.
#pragma once

#include "host_machine.h"

namespace demo {

// Info, Question, Warning, Error, Critical, Success: keys 1 to 6 of the host.
constexpr int kMessageBoxKinds = 6;

// The lower-case name of kind `kind` (0 to 5), such as "question".
char const* MessageBoxKindName(int kind);

// Shows the message box of kind `kind` over the host's window and acts on the answer.
void AskMessageBox(Host& host, int kind);

// AskMessageBox for one fixed kind, as a plain function for tables of dialogs.
template <int kKind>
void AskMessageBoxOf(Host& host) {
    AskMessageBox(host, kKind);
}

}  // namespace demo
