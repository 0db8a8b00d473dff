#pragma once

// The colour of a button shows the state of its key. There are two style sheets for green. The
// exact text of both is part of the interface.
namespace ButtonStyles {

constexpr char unlearned[] = "QPushButton{background-color:rgb(80,80,80);border-radius:6px;"
                             "border:none;outline:none}";
constexpr char learnedAtStart[] = "QPushButton{background-color:green;border-radius:6px;"
                                  "border:none;outline:none}";
constexpr char learned[] = "background-color:green;border-radius:6px;border:none;outline:none";
constexpr char selected[] = "background-color:blue;border-radius:6px;border:none;outline:none";

} // namespace ButtonStyles
