#include "SpringValue.h"

#include <QAbstractAnimation>

#include <cmath>
#include <numbers>

namespace perchly {

namespace {

constexpr double response = 0.42;
constexpr double dampingFraction = 0.88;
constexpr double easeSeconds = 0.12;
constexpr double tolerance = 0.0005; ///< as a fraction of the motion's distance

constexpr double frequency = 2 * std::numbers::pi / response;
constexpr double decay = dampingFraction * frequency;

} // namespace

/// A motion from the current value, at its current speed, to the target.
class SpringValue::Animation : public QAbstractAnimation {
public:
    explicit Animation(SpringValue &owner)
        : m_owner(owner) {
        connect(this, &QAbstractAnimation::stateChanged, &owner, &SpringValue::runningChanged);
    }

    int duration() const override { return -1; }

    void begin() {
        const bool moving = state() == Running;
        m_from = m_owner.m_value;
        m_way = std::abs(m_from - m_owner.m_target);
        m_startSpeed = moving ? m_speed : 0;
        m_speed = m_startSpeed;
        if (moving) {
            setCurrentTime(0);
        } else {
            start();
        }
    }

protected:
    void updateCurrentTime(int milliseconds) override {
        if (milliseconds == 0) {
            return;
        }
        const double seconds = milliseconds / 1000.0;
        const double value = m_owner.m_reduced ? ease(seconds) : spring(seconds);
        const double left = std::abs(value - m_owner.m_target);
        const bool arrived = m_owner.m_reduced ? seconds >= easeSeconds
                                               : left <= tolerance * m_way &&
                                                     std::abs(m_speed) <= tolerance * 20 * m_way;
        if (arrived) {
            stop();
        }
        m_owner.setValue(arrived ? m_owner.m_target : value);
    }

private:
    double ease(double seconds) {
        const double left = 1 - std::min(seconds / easeSeconds, 1.0);
        return m_owner.m_target + (m_from - m_owner.m_target) * left * left * left;
    }

    double spring(double seconds) {
        static const double damped = frequency * std::sqrt(1 - dampingFraction * dampingFraction);
        const double a = m_from - m_owner.m_target;
        const double b = (m_startSpeed + decay * a) / damped;
        const double envelope = std::exp(-decay * seconds);
        const double cosine = std::cos(damped * seconds);
        const double sine = std::sin(damped * seconds);
        m_speed = envelope * ((damped * b - decay * a) * cosine - (damped * a + decay * b) * sine);
        return m_owner.m_target + envelope * (a * cosine + b * sine);
    }

    SpringValue &m_owner;
    double m_from = 0;
    double m_way = 0;
    double m_startSpeed = 0;
    double m_speed = 0;
};

SpringValue::SpringValue(QObject *parent)
    : QObject(parent)
    , m_animation(std::make_unique<Animation>(*this)) {}

SpringValue::~SpringValue() = default;

bool SpringValue::isRunning() const {
    return m_animation->state() == QAbstractAnimation::Running;
}

void SpringValue::setTarget(double target) {
    if (m_target == target) {
        return;
    }
    m_target = target;
    if (m_animated && m_complete) {
        m_animation->begin();
    } else {
        m_animation->stop();
        setValue(target);
    }
    Q_EMIT targetChanged();
}

void SpringValue::setReduced(bool reduced) {
    if (m_reduced == reduced) {
        return;
    }
    m_reduced = reduced;
    if (isRunning()) {
        m_animation->begin();
    }
    Q_EMIT reducedChanged();
}

void SpringValue::setAnimated(bool animated) {
    if (m_animated == animated) {
        return;
    }
    m_animated = animated;
    if (!animated) {
        m_animation->stop();
        setValue(m_target);
    }
    Q_EMIT animatedChanged();
}

void SpringValue::jumpTo(double value) {
    m_animation->stop();
    const bool changed = m_target != value;
    m_target = value;
    setValue(value);
    if (changed) {
        Q_EMIT targetChanged();
    }
}

void SpringValue::classBegin() {
    m_complete = false;
}

void SpringValue::componentComplete() {
    m_complete = true;
}

void SpringValue::setValue(double value) {
    if (m_value == value) {
        return;
    }
    m_value = value;
    Q_EMIT valueChanged();
}

} // namespace perchly
