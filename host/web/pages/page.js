// The page that draws dial, figures and tiles from the read-outs.
(function () {
  'use strict';

  var element = Ferolin.element;
  var word = Ferolin.word;
  var setText = Ferolin.setText;

  var VIEWS = ['dial', 'speed', 'figures'];
  var BLANK_AFTER_S = 3;
  var BLANK = '– –';

  var RANGES = [20, 40, 80, 120, 160, 220, 300];

  var settings = Ferolin.loadSettings({
    language: '', unit: 'kmh', ranges: {}, warn: true, night: false, mirror: false, view: 'dial',
    hintSeen: false,
    tiles: ['max', 'average', 'elapsed', 'altitude', 'course', 'satellites']
  });
  settings.unit = Ferolin.UNITS[settings.unit] ? settings.unit : 'kmh';
  settings.view = VIEWS.indexOf(settings.view) >= 0 ? settings.view : VIEWS[0];

  var readouts = new Ferolin.Readouts(settings);
  var dial = new Ferolin.Dial(element('dial-box'));
  var tiles = {
    dial: new Ferolin.Tiles(element('dial-tiles'), readouts),
    all: new Ferolin.Tiles(element('all-tiles'), readouts)
  };
  settings.tiles = settings.tiles.filter(readouts.findTile);

  var latest = null;  // the newest read-outs
  var receivedAt = 0;
  var limits = [];
  var awakeKey = 'awakeHeld';  // until the browser says something else

  /// In the chosen unit.
  function convert(metresPerSecond) {
    return metresPerSecond * readouts.unit().speed;
  }

  function range() {
    var chosen = settings.ranges[settings.unit];
    return RANGES.indexOf(chosen) >= 0 ? chosen : readouts.unit().range;
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
    return exceeded === null ? null : Math.round(convert(exceeded / 3.6));
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
    var age = latest && typeof latest.fix_age_s === 'number' ? latest.fix_age_s : Infinity;
    return age + (Ferolin.now() - receivedAt) / 1000 <= BLANK_AFTER_S;
  }

  function showState() {
    var key = stateKey();
    element('lamp').className = { ok: 'good', noFix: 'fair', connecting: 'fair' }[key] || 'bad';
    setText(element('state'), word(key));
    setText(element('clock'), key === 'ok' && latest.time ? readouts.timeText(latest.time) : '');
    document.body.classList[key === 'ok' ? 'remove' : 'add']('blank');
  }

  function showSpeed(speed) {
    var text = speed === null ? BLANK : readouts.figureText(speed);
    var below = speed === null ? word(stateKey()) : readouts.unitName(0);
    dial.showSpeed(speed === null ? null : convert(speed), text, below);
    setText(element('large-figure'), text);
    setText(element('large-unit'), below);
  }

  function showWarning(speed) {
    var limit = speed === null ? null : exceededLimit(speed);
    document.body.classList[limit === null ? 'remove' : 'add']('over');
    element('large-sign').hidden = limit === null;
    if (limit !== null) {
      dial.showLimit(String(limit));
      setText(element('large-sign'), String(limit));
    }
  }

  function show() {
    var isKnown = stateKey() === 'ok' && typeof latest.speed_mps === 'number';
    var speed = isKnown ? latest.speed_mps : null;
    showState();
    showSpeed(speed);
    showWarning(speed);
    if (latest) {
      dial.showTrip(readouts.distanceText(latest.distance_m), convert(latest.average_speed_mps),
        convert(latest.max_speed_mps));
    }
    tiles[settings.view === 'dial' ? 'dial' : 'all'].show(latest);
  }

  // --- Arranging ------------------------------------------------------------------------------

  var MARGIN = 5;  // of the views, as the style sheet has it

  function setSize(node, width, height) {
    node.style.width = Math.floor(width) + 'px';
    node.style.height = Math.floor(height) + 'px';
  }

  function arrangeDial(width, height) {
    var hasTiles = settings.tiles.length > 0;
    var isWide = width > height;
    var dialWidth = Math.min(isWide && hasTiles ? width * 0.58 : width,
      (isWide || !hasTiles ? height : height * 0.6) * Ferolin.Dial.SHAPE);
    var dialHeight = isWide || !hasTiles ? height : dialWidth / Ferolin.Dial.SHAPE;
    setSize(element('dial-box'), isWide && hasTiles ? dialWidth : width, dialHeight);
    element('dial-view').className = isWide ? 'view wide' : 'view';
    tiles.dial.fill(settings.tiles, isWide ? width - dialWidth : width,
      isWide ? height : height - dialHeight, Ferolin.Tiles.AS_MANY_AS_FIT);
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
      tiles.all.fill(settings.tiles, width, height, Ferolin.Tiles.SCROLLING);
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
    dial.build(range(), activeLimits().map(function (limit) {
      return convert(limit.speed_kmh / 3.6);
    }));
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
    var names = readouts.tiles.map(function (tile) {
      return [tile[0], readouts.tileName(tile)];
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
    buildChoice('choose-unit', Object.keys(Ferolin.UNITS).map(function (key) {
      return [key, Ferolin.UNITS[key][Ferolin.getLanguage()][0]];
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
