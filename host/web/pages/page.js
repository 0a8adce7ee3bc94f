// The page that draws dial, figures and tiles from the read-outs.
(function () {
  'use strict';

  var element = Ferolin.element;
  var word = Ferolin.word;
  var setText = Ferolin.setText;

  var VIEWS = ['dial', 'speed', 'figures'];
  var BLANK_AFTER_S = 3;
  var NOTHING = '–';
  var BLANK = '– –';

  // Units by their key: how many of them one m/s, m and m of height are.
  var UNITS = {
    kmh: {
      speed: 3.6, distance: 0.001, height: 1, range: 220,
      en: ['km/h', 'km', 'm'], ru: ['км/ч', 'км', 'м']
    },
    mph: {
      speed: 3.6 / 1.609344, distance: 1 / 1609.344, height: 1 / 0.3048, range: 120,
      en: ['mph', 'mi', 'ft'], ru: ['миль/ч', 'миль', 'фут']
    },
    kn: {
      speed: 3.6 / 1.852, distance: 1 / 1852, height: 1 / 0.3048, range: 40,
      en: ['kn', 'NM', 'ft'], ru: ['уз', 'миль', 'фут']
    }
  };
  var RANGES = [20, 40, 80, 120, 160, 220, 300];

  var settings = Ferolin.loadSettings({
    language: '', unit: 'kmh', ranges: {}, warn: true, night: false, mirror: false, view: 'dial',
    hintSeen: false,
    tiles: ['max', 'average', 'elapsed', 'altitude', 'course', 'satellites']
  });
  settings.unit = UNITS[settings.unit] ? settings.unit : 'kmh';
  settings.view = VIEWS.indexOf(settings.view) >= 0 ? settings.view : VIEWS[0];

  var latest = null;  // the newest read-outs
  var receivedAt = 0;
  var limits = [];
  var awakeKey = 'awakeHeld';  // until the browser says something else

  // --- Values ---------------------------------------------------------------------------------

  function isKnown(value) {
    return value !== null && value !== undefined;
  }

  function unit() {
    return UNITS[settings.unit];
  }

  function unitName(index) {
    return unit()[Ferolin.getLanguage()][index];
  }

  function twoDigits(number) {
    return (number < 10 ? '0' : '') + number;
  }

  function durationText(seconds) {
    var whole = Math.floor(seconds);
    var hours = Math.floor(whole / 3600);
    var minutes = Math.floor(whole / 60) % 60;
    return (hours ? hours + ':' + twoDigits(minutes) : minutes) + ':' + twoDigits(whole % 60);
  }

  function timeText(utc) {
    var time = new Date(utc);
    return time.getHours() + ':' + twoDigits(time.getMinutes()) + ':' + twoDigits(time.getSeconds());
  }

  /// Knots of slow boats have a decimal.
  function figureText(metresPerSecond) {
    var speed = metresPerSecond * unit().speed;
    return speed.toFixed(settings.unit === 'kn' && speed < 19.95 ? 1 : 0);
  }

  function distanceValue(metres) {
    var distance = metres * unit().distance;
    return [distance.toFixed(distance < 10 ? 2 : distance < 1000 ? 1 : 0), unitName(1)];
  }

  function speedValue(metresPerSecond) {
    return [(metresPerSecond * unit().speed).toFixed(1), unitName(0)];
  }

  function secondsValue(seconds) {
    return [seconds.toFixed(seconds < 100 ? 2 : 1), Ferolin.getLanguage() === 'ru' ? 'с' : 's'];
  }

  function courseValue(degrees) {
    var names = Ferolin.getLanguage() === 'ru' ?
      ['С', 'СВ', 'В', 'ЮВ', 'Ю', 'ЮЗ', 'З', 'СЗ'] : ['N', 'NE', 'E', 'SE', 'S', 'SW', 'W', 'NW'];
    return [Math.round(degrees) % 360 + '°', names[Math.round(degrees / 45) % 8]];
  }

  function angleValue(names) {
    return function (degrees) {
      var letters = names[Ferolin.getLanguage()];
      return [Math.abs(degrees).toFixed(5) + '°', letters[degrees < 0 ? 1 : 0]];
    };
  }

  function plainValue(value) {
    return [String(value), ''];
  }

  /// A read-out that is there as a text only, under its name in either language.
  function textOf(english, russian) {
    return function (readouts) {
      var text = readouts.text || {};
      return text[english] || text[russian] || null;
    };
  }

  function field(name) {
    return function (readouts) {
      return readouts[name];
    };
  }

  function bestOf(group, name) {
    return function (readouts) {
      return (readouts[group] || {})[name];
    };
  }

  // key, English, Russian, read-out, [number, unit] of a known value
  var TILES = [
    ['max', 'Maximum', 'Максимум', field('max_speed_mps'), speedValue],
    ['average', 'Average', 'Средняя', field('average_speed_mps'), speedValue],
    ['movingAverage', 'Moving average', 'Ср. в движении', field('moving_average_speed_mps'), speedValue],
    ['distance', 'Trip', 'Путь', field('distance_m'), distanceValue],
    ['elapsed', 'Elapsed', 'Время в пути', field('elapsed_s'), [durationText]],
    ['moving', 'Time moving', 'Время движения', field('moving_s'), [durationText]],
    ['stopped', 'Stopped', 'Стоянка', field('stopped_s'), [durationText]],
    ['time', 'Time', 'Время', field('time'), [timeText]],
    ['altitude', 'Altitude', 'Высота', field('alt_m'), function (metres) {
      return [(metres * unit().height).toFixed(0), unitName(2)];
    }],
    ['course', 'Course', 'Курс', field('course_deg'), courseValue],
    ['latitude', 'Latitude', 'Широта', field('lat'),
      angleValue({ en: ['N', 'S'], ru: ['с. ш.', 'ю. ш.'] })],
    ['longitude', 'Longitude', 'Долгота', field('lon'),
      angleValue({ en: ['E', 'W'], ru: ['в. д.', 'з. д.'] })],
    ['satellites', 'Satellites', 'Спутники', field('satellites'), plainValue],
    ['hdop', 'HDOP', 'HDOP', field('hdop'), function (value) { return [value.toFixed(1), '']; }],
    ['vdop', 'VDOP', 'VDOP', textOf('VDOP', 'VDOP'), plainValue],
    ['pdop', 'PDOP', 'PDOP', textOf('PDOP', 'PDOP'), plainValue],
    ['status', 'GPS status', 'Статус GPS', textOf('GPS status', 'Статус GPS'), plainValue],
    ['battery', 'Battery', 'Батарея', textOf('Battery status', 'Зарядка батареи'), plainValue],
    ['speed', 'Speed', 'Скорость', field('speed_mps'), speedValue]
  ];
  [10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 120, 150, 200].forEach(function (kmh) {
    TILES.push(['accel' + kmh, '0–' + kmh + ' km/h', '0–' + kmh + ' км/ч',
      bestOf('accelerations_s', '0-' + kmh + '_kmh'), secondsValue]);
  });
  [100, 402, 500, 1000, 10000].forEach(function (metres) {
    TILES.push(['best' + metres, 'Best ' + metres + ' m', 'Лучшие ' + metres + ' м',
      bestOf('fastest_s', metres + '_m'), secondsValue]);
  });

  function findTile(key) {
    return TILES.filter(function (tile) { return tile[0] === key; })[0];
  }

  function tileName(tile) {
    return tile[Ferolin.getLanguage() === 'ru' ? 2 : 1];
  }

  function tileValue(tile) {
    var value = latest ? tile[3](latest) : null;
    if (!isKnown(value) || value === '') {
      return [NOTHING, ''];
    }
    return Array.isArray(tile[4]) ? [tile[4][0](value), ''] : tile[4](value);
  }

  settings.tiles = settings.tiles.filter(findTile);

  // --- Dial -----------------------------------------------------------------------------------

  var CENTRE = 200;
  var RADIUS = 180;
  var FIRST_DEGREE = 140;  // from the right, clockwise
  var SWEEP_DEGREES = 260;
  var DIAL_WIDTH = 400;
  var DIAL_HEIGHT = 345;

  function range() {
    var chosen = settings.ranges[settings.unit];
    return RANGES.indexOf(chosen) >= 0 ? chosen : unit().range;
  }

  /// `speed` in the chosen unit; beyond the scale it stays at the end.
  function degreeOf(speed) {
    return FIRST_DEGREE + SWEEP_DEGREES * Math.max(0, Math.min(1, speed / range()));
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

  var dial = {};

  /// At most twelve steps, so that figures keep apart.
  function scaleStep() {
    return [2, 5, 10, 20, 50].filter(function (step) { return range() / step <= 12; })[0];
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
    for (var half = 0; half * step / 2 <= range(); half++) {
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

  function addLimits(svg) {
    activeLimits().forEach(function (limit) {
      var speed = limit.speed_kmh / 3.6 * unit().speed;
      if (speed < range()) {
        addShape(svg, 'path', { 'class': 'limit', d: radialPath(degreeOf(speed), 166, 194) });
      }
    });
  }

  function buildDial() {
    var box = element('dial-box');
    box.textContent = '';
    var svg = addShape(box, 'svg', { id: 'dial', viewBox: '0 0 ' + DIAL_WIDTH + ' ' + DIAL_HEIGHT });
    addShape(svg, 'path', { 'class': 'track', d: arcPath() });
    dial.arc = addShape(svg, 'path', { 'class': 'arc', d: arcPath() });
    dial.length = RADIUS * SWEEP_DEGREES * Math.PI / 180;
    dial.arc.setAttribute('stroke-dasharray', dial.length + ' ' + 2 * dial.length);
    dial.arc.style.strokeDashoffset = dial.length;
    addLimits(svg);
    addScale(svg);
    dial.average = addShape(svg, 'path', { 'class': 'mark average' });
    dial.maximum = addShape(svg, 'path', { 'class': 'mark maximum' });
    dial.figure = addShape(svg, 'text', { id: 'figure', x: CENTRE, y: 240 });
    dial.unit = addShape(svg, 'text', { 'class': 'unit', x: CENTRE, y: 274 });
    dial.trip = addShape(svg, 'text', { id: 'trip', x: CENTRE, y: 330 });
    dial.sign = addShape(svg, 'g', { 'class': 'dial-sign' });
    addShape(dial.sign, 'circle', { cx: CENTRE, cy: 114, r: 27 });
    dial.limit = addShape(dial.sign, 'text', { x: CENTRE, y: 114, dy: '0.36em' });
  }

  /// A triangle that points at the arc from outside; none for a missing speed or one off the scale.
  function placeMark(mark, metresPerSecond) {
    var speed = (metresPerSecond || 0) * unit().speed;
    if (speed === 0 || speed > range()) {
      mark.setAttribute('d', '');
      return;
    }
    var degree = degreeOf(speed);
    mark.setAttribute('d', 'M' + pointAt(degree, 174) + 'L' + pointAt(degree - 4, 199) + 'L' +
      pointAt(degree + 4, 199) + 'Z');
  }

  // --- Limits ---------------------------------------------------------------------------------

  function activeLimits() {
    return settings.warn ? limits.filter(function (limit) { return limit.on; }) : [];
  }

  /// The highest limit exceeded, in the chosen unit; null below all.
  function exceededLimit(metresPerSecond) {
    var exceeded = null;
    activeLimits().forEach(function (limit) {
      if (metresPerSecond * 3.6 > limit.speed_kmh && limit.speed_kmh > (exceeded || 0)) {
        exceeded = limit.speed_kmh;
      }
    });
    return exceeded === null ? null : Math.round(exceeded / 3.6 * unit().speed);
  }

  // --- Showing --------------------------------------------------------------------------------

  /// Which of the words tells the state.
  function stateKey() {
    if (stream.state !== 'open') {
      return stream.state;
    }
    if (!latest) {
      return 'connecting';
    }
    if (latest.receiver === 'silent') {
      return 'silent';
    }
    return isFresh() ? 'ok' : 'noFix';
  }

  /// Whether the newest fix is young enough to be believed; the page goes on counting by itself.
  function isFresh() {
    var age = latest && isKnown(latest.fix_age_s) ? latest.fix_age_s : Infinity;
    return age + (Ferolin.now() - receivedAt) / 1000 <= BLANK_AFTER_S;
  }

  function showState() {
    var key = stateKey();
    element('lamp').className = key === 'ok' ? 'good' : key === 'noFix' || key === 'connecting' ? 'fair' : 'bad';
    setText(element('state'), word(key));
    setText(element('clock'), latest && latest.time && key === 'ok' ? timeText(latest.time) : '');
    document.body.classList[key === 'ok' ? 'remove' : 'add']('blank');
  }

  function showSpeed(speed) {
    var isBlank = speed === null;
    var below = isBlank ? word(stateKey()) : unitName(0);
    var text = isBlank ? BLANK : figureText(speed);
    setText(dial.figure, text);
    dial.figure.setAttribute('class', text.length > 2 ? 'long' : '');
    dial.unit.setAttribute('y', isBlank ? 258 : 274);  // its words are wider than a unit
    setText(dial.unit, below);
    setText(element('large-figure'), text);
    setText(element('large-unit'), below);
    dial.arc.style.strokeDashoffset = isBlank ? dial.length :
      dial.length * (FIRST_DEGREE + SWEEP_DEGREES - degreeOf(speed * unit().speed)) / SWEEP_DEGREES;
  }

  function showWarning(speed) {
    var limit = speed === null ? null : exceededLimit(speed);
    document.body.classList[limit === null ? 'remove' : 'add']('over');
    element('large-sign').hidden = limit === null;
    if (limit !== null) {
      setText(dial.limit, String(limit));
      setText(element('large-sign'), String(limit));
    }
  }

  function showTiles() {
    Ferolin.forEach(document.querySelectorAll('.view:not([hidden]) .tile'), function (node) {
      var value = tileValue(findTile(node.getAttribute('data-key')));
      setText(node.querySelector('.value span'), value[0]);
      setText(node.querySelector('.value small'), value[1]);
      shrinkToFit(node);
    });
  }

  function show() {
    var speed = latest && isFresh() && isKnown(latest.speed_mps) ? latest.speed_mps : null;
    showState();
    showSpeed(speed);
    showWarning(speed);
    if (latest) {
      setText(dial.trip, distanceValue(latest.distance_m).join(' '));
      placeMark(dial.average, latest.average_speed_mps);
      placeMark(dial.maximum, latest.max_speed_mps);
    }
    showTiles();
  }

  // --- Arranging ------------------------------------------------------------------------------

  var SMALLEST_TILE_FIGURE = 26;
  var GAP = 8;
  var MARGIN = 5;  // of the views, as the style sheet has it

  /// Columns that make the tiles' figures largest; `size` in pixels.
  function bestGrid(width, height, count) {
    var best = { size: 0, columns: 1, rows: 1 };
    for (var columns = 1; columns <= Math.min(count, 5); columns++) {
      var rows = Math.ceil(count / columns);
      var size = Math.min((height / rows - GAP) * 0.48, (width / columns - GAP - 20) / 4.4, 120);
      if (size > best.size) {
        best = { size: size, columns: columns, rows: rows };
      }
    }
    return best;
  }

  function addTile(parent, key, width, height, size) {
    var tile = document.createElement('div');
    tile.className = 'tile ' + key;
    tile.setAttribute('data-key', key);
    tile.style.width = width + 'px';
    tile.style.height = height + 'px';
    var label = document.createElement('div');
    label.className = 'label';
    label.textContent = tileName(findTile(key));
    label.style.fontSize = Math.max(14, Math.min(24, size * 0.42)) + 'px';
    var value = document.createElement('div');
    value.className = 'value';
    value.setAttribute('data-size', Math.floor(size));
    value.style.fontSize = Math.floor(size) + 'px';
    value.appendChild(document.createElement('span'));
    value.appendChild(document.createElement('small'));
    tile.appendChild(label);
    tile.appendChild(value);
    parent.appendChild(tile);
  }

  /// Positions and Russian units may be wider than the tile.
  function shrinkToFit(tile) {
    var value = tile.querySelector('.value');
    var length = String(value.textContent.length);
    if (value.getAttribute('data-length') === length) {
      return;
    }
    value.setAttribute('data-length', length);
    var size = Number(value.getAttribute('data-size'));
    value.style.fontSize = size + 'px';
    if (value.scrollWidth > value.clientWidth) {
      value.style.fontSize = Math.floor(size * value.clientWidth / value.scrollWidth) + 'px';
    }
  }

  function fillTiles(parent, width, height, keys) {
    parent.textContent = '';
    var grid = bestGrid(width, height, keys.length);
    var size = Math.max(grid.size, SMALLEST_TILE_FIGURE);
    var isScrolling = size > grid.size;
    var tileHeight = isScrolling ? 72 : Math.floor(height / grid.rows) - GAP;
    if (isScrolling) {
      grid.columns = Math.max(1, Math.floor(width / 160));
    }
    keys.forEach(function (key, index) {
      var inRow = Math.min(grid.columns, keys.length - index + index % grid.columns);
      addTile(parent, key, Math.floor(width / inRow) - GAP, tileHeight, size);
    });
  }

  /// As many of the chosen tiles as are readable there.
  function fillDialTiles(width, height) {
    var count = settings.tiles.length;
    while (count > 0 && bestGrid(width, height, count).size < SMALLEST_TILE_FIGURE) {
      count--;
    }
    fillTiles(element('dial-tiles'), width, height, settings.tiles.slice(0, count));
  }

  function setSize(node, width, height) {
    node.style.width = Math.floor(width) + 'px';
    node.style.height = Math.floor(height) + 'px';
  }

  function arrangeDial(width, height) {
    var hasTiles = settings.tiles.length > 0;
    var isWide = width > height;
    var dialWidth = Math.min(isWide && hasTiles ? width * 0.58 : width,
      (isWide || !hasTiles ? height : height * 0.6) * DIAL_WIDTH / DIAL_HEIGHT);
    var dialHeight = dialWidth * DIAL_HEIGHT / DIAL_WIDTH;
    setSize(element('dial-box'), isWide && hasTiles ? dialWidth : width, isWide ? height : dialHeight);
    element('dial-view').className = isWide ? 'view wide' : 'view';
    if (hasTiles) {
      fillDialTiles(Math.floor(isWide ? width - dialWidth : width), Math.floor(isWide ? height : height - dialHeight));
    } else {
      element('dial-tiles').textContent = '';
    }
  }

  /// The largest size at which three figures fit, whatever the browser's font.
  function arrangeSpeed(width, height) {
    var figure = element('large-figure');
    var line = Math.max(22, Math.min(width, height) * 0.11);
    var text = figure.textContent;
    figure.style.fontSize = '100px';
    figure.textContent = '888';
    var measured = figure.scrollWidth;
    figure.textContent = text;
    var size = Math.floor(Math.min(width * 96 / measured, (height - line * 1.3) * 1.2));
    figure.style.fontSize = size + 'px';
    figure.style.lineHeight = Math.floor(size * 0.8) + 'px';
    element('large-line').style.fontSize = Math.floor(line) + 'px';
    var sign = Math.floor(Math.min(width, height) * 0.24);
    setSize(element('large-sign'), sign, sign);
    element('large-sign').style.lineHeight = Math.floor(sign * 0.78) + 'px';
    element('large-sign').style.fontSize = Math.floor(sign * 0.38) + 'px';
  }

  function arrange() {
    var stage = element('stage');
    var width = stage.clientWidth - 2 * MARGIN;
    var height = stage.clientHeight - 2 * MARGIN;
    if (settings.view === 'dial') {
      arrangeDial(width, height);
    } else if (settings.view === 'speed') {
      arrangeSpeed(width, height);
    } else {
      fillTiles(element('all-tiles'), width, height, settings.tiles);
    }
    show();
  }

  // --- Choices --------------------------------------------------------------------------------

  function applySettings() {
    document.body.classList[settings.night ? 'add' : 'remove']('night');
    document.body.classList[settings.mirror ? 'add' : 'remove']('mirrored');
    element('night').setAttribute('aria-pressed', settings.night);
    element('mirror').setAttribute('aria-pressed', settings.mirror);
    VIEWS.forEach(function (view) {
      element(view + '-view').hidden = view !== settings.view;
    });
    if (settings.language) {
      Ferolin.translate(settings.language);
    }
    buildDial();
    buildSettings();
    arrange();
  }

  function change(key, value) {
    settings[key] = value;
    Ferolin.saveSettings(settings);
    applySettings();
  }

  function stepView(step) {
    var place = VIEWS.indexOf(settings.view) + step;
    change('view', VIEWS[(place + VIEWS.length) % VIEWS.length]);
  }

  /// choices: [value, text]
  function buildChoice(id, choices, chosen, choose) {
    var parent = element(id);
    parent.textContent = '';
    choices.forEach(function (each) {
      var button = document.createElement('button');
      button.type = 'button';
      button.textContent = each[1];
      button.setAttribute('aria-pressed', each[0] === chosen);
      button.setAttribute('data-value', each[0]);
      button.addEventListener('click', function () {
        choose(each[0]);
      });
      parent.appendChild(button);
    });
  }

  function buildSwitch(key) {
    buildChoice(key === 'warn' ? 'choose-warnings' : 'choose-' + key,
      [[true, word('on')], [false, word('off')]], settings[key], function (value) {
        change(key, value);
      });
  }

  function chooseTile(key) {
    var isChosen = settings.tiles.indexOf(key) >= 0;
    change('tiles', isChosen ? settings.tiles.filter(function (each) { return each !== key; }) :
      settings.tiles.concat([key]));
  }

  function buildTileChoice() {
    var names = TILES.map(function (tile) {
      return [tile[0], tileName(tile)];
    });
    buildChoice('choose-tiles', names, null, chooseTile);
    Ferolin.forEach(element('choose-tiles').children, function (button) {
      var place = settings.tiles.indexOf(button.getAttribute('data-value'));
      button.setAttribute('aria-pressed', place >= 0);
      if (place >= 0) {
        var number = document.createElement('b');
        number.textContent = place + 1;
        button.insertBefore(number, button.firstChild);
      }
    });
  }

  function buildSettings() {
    if (element('settings').hidden) {
      return;
    }
    buildChoice('choose-language', [['en', 'English'], ['ru', 'Русский']], Ferolin.getLanguage(),
      function (value) { change('language', value); });
    buildChoice('choose-unit', Object.keys(UNITS).map(function (key) {
      return [key, UNITS[key][Ferolin.getLanguage()][0]];
    }), settings.unit, function (value) { change('unit', value); });
    buildChoice('choose-range', RANGES.map(function (value) { return [value, value]; }), range(),
      function (value) {
        settings.ranges[settings.unit] = value;
        change('ranges', settings.ranges);
      });
    ['warn', 'night', 'mirror'].forEach(buildSwitch);
    buildTileChoice();
    setText(element('awake-text'), word(awakeKey));
    element('fullscreen-row').hidden = !Ferolin.hasFullScreen();
  }

  function showHint() {
    var isWorking = awakeKey === 'awakeHeld' || awakeKey === 'awakeRefused';
    element('hint').hidden = settings.hintSeen || isWorking;
    setText(element('hint').querySelector('p'), word(awakeKey));
    arrange();
  }

  function openSettings(isOpen) {
    element('settings').hidden = !isOpen;
    applySettings();
  }

  // --- Hands ----------------------------------------------------------------------------------

  var SWIPE_PIXELS = 50;
  var BAR_MS = 5000;
  var touched = null;
  var barTimer = null;

  /// In the windscreen the buttons would be reflected, too: they show for a while after a touch.
  function showBar() {
    clearTimeout(barTimer);
    document.body.classList.add('touched');
    barTimer = setTimeout(function () {
      document.body.classList.remove('touched');
    }, BAR_MS);
  }

  function startSwipe(event) {
    touched = event.touches.length === 1 ?
      { x: event.touches[0].clientX, y: event.touches[0].clientY } : null;
  }

  function endSwipe(event) {
    if (!touched) {
      return;
    }
    var across = event.changedTouches[0].clientX - touched.x;
    var along = event.changedTouches[0].clientY - touched.y;
    touched = null;
    if (Math.abs(across) > SWIPE_PIXELS && Math.abs(across) > 1.5 * Math.abs(along)) {
      stepView(across < 0 ? 1 : -1);
    }
  }

  function pressKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) {
      return;
    }
    var work = {
      ArrowLeft: function () { stepView(-1); },
      ArrowRight: function () { stepView(1); },
      Escape: function () { openSettings(false); },
      h: function () { change('mirror', !settings.mirror); },
      n: function () { change('night', !settings.night); },
      f: Ferolin.switchFullScreen
    }[event.key];
    if (work) {
      work();
    }
  }

  function onClick(id, work) {
    element(id).addEventListener('click', work);
  }

  onClick('previous', function () { stepView(-1); });
  onClick('next', function () { stepView(1); });
  onClick('mirror', function () { change('mirror', !settings.mirror); });
  onClick('night', function () { change('night', !settings.night); });
  onClick('engine', function () { location.href = '/views'; });
  onClick('open-settings', function () { openSettings(true); });
  onClick('close-settings', function () { openSettings(false); });
  onClick('fullscreen', Ferolin.switchFullScreen);
  element('hint').querySelector('button').addEventListener('click', function () {
    change('hintSeen', true);
    showHint();
  });
  element('stage').addEventListener('touchstart', startSwipe, false);
  element('stage').addEventListener('touchend', endSwipe, false);
  document.addEventListener('click', showBar);
  document.addEventListener('keydown', pressKey);
  window.addEventListener('resize', arrange);

  // --- The box --------------------------------------------------------------------------------

  function greet(hello) {
    limits = hello.limits || [];
    element('engine').hidden = !hello.views;
    setText(element('version'), 'Ferolin ' + hello.version);
    if (!settings.language) {
      Ferolin.translate(hello.language);
    }
    applySettings();
    showHint();
  }

  function update(readouts) {
    latest = readouts;
    receivedAt = Ferolin.now();
    show();
  }

  var stream = { state: 'connecting' };
  Ferolin.translate(settings.language);
  element('engine').hidden = true;
  applySettings();
  showBar();
  stream = new Ferolin.Stream('/events', { hello: greet, update: update }, show);
  setInterval(show, 500);
  Ferolin.keepAwake(function (key) {
    awakeKey = key;
    setText(element('awake-text'), word(key));
    showHint();
  });
})();
