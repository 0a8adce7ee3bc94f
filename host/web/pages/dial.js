// The dial, drawn once for a scale; then arc, marks and texts change.

/// Speeds in the unit of the scale. `box`: the element that the dial fills.
Ferolin.Dial = function (box) {
  'use strict';

  var CENTRE = 200;
  var RADIUS = 180;
  var FIRST_DEGREE = 140;  // from the right, clockwise
  var SWEEP_DEGREES = 260;
  var ARC_LENGTH = RADIUS * SWEEP_DEGREES * Math.PI / 180;

  var setText = Ferolin.setText;
  var range = 0;
  var parts = {};

  /// Beyond the scale it stays at the end.
  function degreeOf(speed) {
    return FIRST_DEGREE + SWEEP_DEGREES * Math.max(0, Math.min(1, speed / range));
  }

  function pointAt(degree, radius) {
    var angle = degree * Math.PI / 180;
    return (CENTRE + radius * Math.cos(angle)).toFixed(2) + ' ' +
      (CENTRE + radius * Math.sin(angle)).toFixed(2);
  }

  function addShape(parent, name, attributes, text) {
    var shape = document.createElementNS('http://www.w3.org/2000/svg', name);
    Object.keys(attributes).forEach(function (key) {
      shape.setAttribute(key, attributes[key]);
    });
    if (text !== undefined) {
      shape.textContent = text;
    }
    parent.appendChild(shape);
    return shape;
  }

  function arcPath() {
    return 'M' + pointAt(FIRST_DEGREE, RADIUS) + 'A' + RADIUS + ' ' + RADIUS + ' 0 1 1 ' +
      pointAt(FIRST_DEGREE + SWEEP_DEGREES, RADIUS);
  }

  function radialPath(degree, from, to) {
    return 'M' + pointAt(degree, from) + 'L' + pointAt(degree, to);
  }

  /// At most twelve steps, so that figures keep apart.
  function scaleStep() {
    return [2, 5, 10, 20, 50].filter(function (step) { return range / step <= 12; })[0];
  }

  /// Its nearest edge is as far from the ticks at the sides as at the top.
  function addNumber(svg, speed) {
    var angle = degreeOf(speed) * Math.PI / 180;
    var halfWidth = 6.3 * String(speed).length;
    var radius = 152 - Math.abs(Math.cos(angle)) * halfWidth - Math.abs(Math.sin(angle)) * 9;
    var place = pointAt(degreeOf(speed), radius).split(' ');
    addShape(svg, 'text', { 'class': 'number', x: place[0], y: place[1], dy: '0.36em' }, speed);
  }

  function addScale(svg) {
    var step = scaleStep();
    for (var half = 0; half * step / 2 <= range; half++) {
      var speed = half * step / 2;
      var isWhole = half % 2 === 0;
      addShape(svg, 'path', {
        'class': isWhole ? 'tick' : 'tick minor',
        d: radialPath(degreeOf(speed), isWhole ? 156 : 160, 166)
      });
      if (isWhole) {
        addNumber(svg, speed);
      }
    }
  }

  function addLimits(svg, limits) {
    limits.forEach(function (speed) {
      if (speed < range) {
        addShape(svg, 'path', { 'class': 'limit', d: radialPath(degreeOf(speed), 166, 194) });
      }
    });
  }

  /// A triangle that points at the arc from outside; none for a missing speed or one off the scale.
  function placeMark(mark, speed) {
    if (!speed || speed > range) {
      mark.setAttribute('d', '');
      return;
    }
    var degree = degreeOf(speed);
    mark.setAttribute('d', 'M' + pointAt(degree, 174) + 'L' + pointAt(degree - 4, 199) + 'L' +
      pointAt(degree + 4, 199) + 'Z');
  }

  function setArc(speed) {
    parts.arc.style.strokeDashoffset =
      ARC_LENGTH * (FIRST_DEGREE + SWEEP_DEGREES - degreeOf(speed)) / SWEEP_DEGREES;
  }

  /// The scale goes from 0 to `highest`.
  this.build = function (highest, limits) {
    range = highest;
    box.textContent = '';
    var svg = addShape(box, 'svg', { id: 'dial', viewBox: '0 0 400 345' });
    addShape(svg, 'path', { 'class': 'track', d: arcPath() });
    parts.arc = addShape(svg, 'path', { 'class': 'arc', d: arcPath() });
    parts.arc.setAttribute('stroke-dasharray', ARC_LENGTH + ' ' + 2 * ARC_LENGTH);
    setArc(0);
    addLimits(svg, limits);
    addScale(svg);
    parts.average = addShape(svg, 'path', { 'class': 'mark average' });
    parts.maximum = addShape(svg, 'path', { 'class': 'mark maximum' });
    parts.figure = addShape(svg, 'text', { id: 'figure', x: CENTRE, y: 240 });
    parts.unit = addShape(svg, 'text', { 'class': 'unit', x: CENTRE, y: 274 });
    parts.trip = addShape(svg, 'text', { id: 'trip', x: CENTRE, y: 330 });
    var sign = addShape(svg, 'g', { 'class': 'dial-sign' });
    addShape(sign, 'circle', { cx: CENTRE, cy: 114, r: 27 });
    parts.limit = addShape(sign, 'text', { x: CENTRE, y: 114, dy: '0.36em' });
  };

  /// `below`: the unit, or what is wrong while `speed` is null.
  this.showSpeed = function (speed, text, below) {
    setArc(speed || 0);
    setText(parts.figure, text);
    parts.figure.setAttribute('class', text.length > 2 ? 'long' : '');
    setText(parts.unit, below);
    parts.unit.setAttribute('y', speed === null ? 258 : 274);  // words are wider than a unit
  };

  this.showTrip = function (text, average, maximum) {
    setText(parts.trip, text);
    placeMark(parts.average, average);
    placeMark(parts.maximum, maximum);
  };

  this.showLimit = function (text) {
    setText(parts.limit, text);
  };
};

/// Width by height.
Ferolin.Dial.SHAPE = 400 / 345;
