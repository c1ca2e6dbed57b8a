#pragma once

#include <QObject>
#include <QQmlParserStatus>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace perchly {

/// A number that follows its target with the program's one spring. A motion takes about 0.42 s,
/// hardly overshoots, and keeps its speed when the target changes. With reduced motion the value
/// eases out over 0.12 s instead. Costs nothing at rest.
class SpringValue : public QObject, public QQmlParserStatus {
    Q_OBJECT
    Q_INTERFACES(QQmlParserStatus)
    QML_ELEMENT
    Q_PROPERTY(double target READ target WRITE setTarget NOTIFY targetChanged FINAL)
    Q_PROPERTY(double value READ value NOTIFY valueChanged FINAL)
    Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged FINAL)
    Q_PROPERTY(bool reduced READ isReduced WRITE setReduced NOTIFY reducedChanged FINAL)
    Q_PROPERTY(bool animated READ isAnimated WRITE setAnimated NOTIFY animatedChanged FINAL)
public:
    explicit SpringValue(QObject *parent = nullptr);
    ~SpringValue() override;

    /// Setting it starts the motion, or jumps if `animated` is false. The first target, set before
    /// the component is complete, is the initial value.
    [[nodiscard]] double target() const { return m_target; }
    void setTarget(double target);

    [[nodiscard]] double value() const { return m_value; }
    [[nodiscard]] bool isRunning() const;

    /// Whether to ease instead of spring. A change restarts a motion from the current value.
    [[nodiscard]] bool isReduced() const { return m_reduced; }
    void setReduced(bool reduced);

    /// If false, the value always equals the target. Turning it off ends a motion at its target.
    [[nodiscard]] bool isAnimated() const { return m_animated; }
    void setAnimated(bool animated);

    /// Sets both value and target, without motion.
    Q_INVOKABLE void jumpTo(double value);

    void classBegin() override;
    void componentComplete() override;

Q_SIGNALS:
    void targetChanged();
    void valueChanged();
    void runningChanged();
    void reducedChanged();
    void animatedChanged();

private:
    class Animation;

    void setValue(double value);

    std::unique_ptr<Animation> m_animation;
    double m_target = 0;
    double m_value = 0;
    bool m_reduced = false;
    bool m_animated = true;
    bool m_complete = true;
};

} // namespace perchly
