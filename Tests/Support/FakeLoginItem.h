#pragma once

#include "LoginItem.h"

namespace perchly {

/// A desktop that keeps what it is told, unless `failure` says why it cannot.
class FakeLoginItem : public LoginItem {
public:
    bool isEnabled() const override { return enabled; }
    Result registerProgram() override { return change(true, Outcome::Registered); }
    Result unregisterProgram() override { return change(false, Outcome::Unregistered); }

    bool enabled = false;
    QString failure;

private:
    Result change(bool wanted, Outcome outcome) {
        if (!failure.isEmpty()) {
            return {.message = failure};
        }
        enabled = wanted;
        return {.outcome = outcome};
    }
};

} // namespace perchly
