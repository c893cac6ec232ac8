#pragma once

#include "runtime/RuntimeError.h"

#include <functional>

/// Runs something and keeps the error it ends with; number 0 means none.
struct Failed
{
    explicit Failed(const std::function<void()>& action)
    {
        try {
            action();
        } catch (const RuntimeError& error) {
            number = error.Number();
            whatFailed = error.WhatFailed();
            description = error.Description();
        }
    }

    int number = 0;
    QString whatFailed;
    QString description;
};
