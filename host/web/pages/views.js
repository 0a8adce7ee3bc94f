// The page that shows the engine's own views: one picture for all who look.
(function () {
  'use strict';

  var element = Ferolin.element;
  var word = Ferolin.word;

  var picture = element('picture');
  var settings = Ferolin.loadSettings({ language: '' });
  var mayControl = false;
  var streamNumber = 0;  // tells the box whom an answer is for

  // --- Picture --------------------------------------------------------------------------------

  var wanted = null;  // newest view event not fetched yet
  var isLoading = false;

  /// As large as fits; the picture keeps its shape.
  function letterbox() {
    var stage = element('stage');
    var scale = Math.min(stage.clientWidth / picture.width, stage.clientHeight / picture.height);
    picture.style.width = Math.floor(picture.width * scale) + 'px';
    picture.style.height = Math.floor(picture.height * scale) + 'px';
  }

  function draw(image) {
    if (picture.width !== image.naturalWidth || picture.height !== image.naturalHeight) {
      picture.width = image.naturalWidth;
      picture.height = image.naturalHeight;
      letterbox();
    }
    picture.getContext('2d').drawImage(image, 0, 0);
    picture.setAttribute('aria-label', image.alt);
    picture.classList.remove('waiting');
  }

  /// One picture at a time; those that came meanwhile are left out but for the newest.
  function fetchNewest() {
    if (isLoading || !wanted) {
      return;
    }
    var image = new Image();
    image.alt = wanted.view;
    image.onload = function () {
      draw(image);
      goOn();
    };
    image.onerror = goOn;
    image.src = '/views/frame.png?n=' + wanted.frame;
    isLoading = true;
    wanted = null;
  }

  function goOn() {
    isLoading = false;
    fetchNewest();
  }

  // --- Sending --------------------------------------------------------------------------------

  var queue = [];
  var isSending = false;

  /// In order, one after the other; of moves in a row the newest.
  function send(input) {
    if (!mayControl) {
      return;
    }
    var last = queue[queue.length - 1];
    if (input.type === 'move' && last && last.type === 'move') {
      queue.pop();
    }
    input.stream = streamNumber;
    queue.push(input);
    sendNext();
  }

  function sendNext() {
    if (isSending || queue.length === 0) {
      return;
    }
    isSending = true;
    Ferolin.request('POST', '/views/input', queue.shift(), function () {
      isSending = false;
      sendNext();
    });
  }

  function leave() {
    location.href = '/';
  }

  /// The button answers at once, the picture follows.
  function stepView(step) {
    picture.classList.add('waiting');
    send({ type: 'view', step: step });
  }

  function fit() {
    var stage = element('stage');
    var ratio = window.devicePixelRatio || 1;
    send({
      type: 'fit',
      width: Math.round(stage.clientWidth * ratio),
      height: Math.round(stage.clientHeight * ratio),
      dpi: Math.round(96 * ratio)
    });
  }

  // --- Touches --------------------------------------------------------------------------------

  var DOUBLE_MS = 400;
  var DOUBLE_PIXELS = 30;
  var lastDown = { at: -DOUBLE_MS, x: 0, y: 0 };
  var isDown = false;

  function inPicture(x, y) {
    var area = picture.getBoundingClientRect();
    function within(place, size) {
      return Math.max(0, Math.min(size - 1, Math.floor(place * size)));
    }
    return {
      x: within((x - area.left) / area.width, picture.width),
      y: within((y - area.top) / area.height, picture.height)
    };
  }

  function sendPoint(type, x, y) {
    var point = inPicture(x, y);
    send({ type: type, x: point.x, y: point.y });
  }

  function showTouch(x, y) {
    var stage = element('stage').getBoundingClientRect();
    element('touch').style.left = x - stage.left + 'px';
    element('touch').style.top = y - stage.top + 'px';
    element('touch').hidden = false;
  }

  function press(x, y) {
    var at = Ferolin.now();
    var isDouble = at - lastDown.at < DOUBLE_MS && Math.abs(x - lastDown.x) < DOUBLE_PIXELS &&
      Math.abs(y - lastDown.y) < DOUBLE_PIXELS;
    lastDown = { at: isDouble ? -DOUBLE_MS : at, x: x, y: y };
    isDown = true;
    showTouch(x, y);
    sendPoint(isDouble ? 'double' : 'down', x, y);
  }

  function drag(x, y) {
    if (isDown) {
      showTouch(x, y);
      sendPoint('move', x, y);
    }
  }

  function release(x, y) {
    if (isDown) {
      isDown = false;
      element('touch').hidden = true;
      sendPoint('up', x, y);
    }
  }

  /// Touches keep the browser from making clicks of them.
  function onTouch(name, work) {
    picture.addEventListener(name, function (event) {
      event.preventDefault();
      work(event.changedTouches[0].clientX, event.changedTouches[0].clientY);
    }, { passive: false });
  }

  function onMouse(target, name, work) {
    target.addEventListener(name, function (event) {
      work(event.clientX, event.clientY);
    });
  }

  var KEYS = {
    ArrowLeft: 'left', ArrowRight: 'right', ArrowUp: 'up', ArrowDown: 'down', Enter: 'enter',
    Home: 'home', Delete: 'delete', Backspace: 'backspace'
  };
  var LETTERS = 'ohvribs';

  function pressKey(event) {
    if (event.ctrlKey || event.altKey || event.metaKey) {
      return;
    }
    var letter = event.key.length === 1 ? event.key.toLowerCase() : '';
    var key = KEYS[event.key] || (letter && LETTERS.indexOf(letter) >= 0 ? letter : '');
    if (event.key === 'Escape' || letter === 'q') {
      leave();
    } else if (key && !(key === 'enter' && document.activeElement.tagName === 'BUTTON')) {
      event.preventDefault();
      send({ type: 'key', key: key });
    }
  }

  onTouch('touchstart', press);
  onTouch('touchmove', drag);
  onTouch('touchend', release);
  onTouch('touchcancel', release);
  onMouse(picture, 'mousedown', press);
  onMouse(document, 'mousemove', drag);
  onMouse(document, 'mouseup', release);
  document.addEventListener('keydown', pressKey);
  element('previous').addEventListener('click', function () { stepView(-1); });
  element('next').addEventListener('click', function () { stepView(1); });
  element('fit').addEventListener('click', fit);
  element('leave').addEventListener('click', leave);
  window.addEventListener('resize', letterbox);

  // --- The box --------------------------------------------------------------------------------

  function showState() {
    var isOpen = stream.state === 'open';
    element('lamp').className = isOpen ? 'good' : stream.state === 'connecting' ? 'fair' : 'bad';
    var openKey = mayControl ? 'everyone' : 'lookOnly';
    Ferolin.setText(element('state'), word(isOpen ? openKey : stream.state));
  }

  function greet(hello) {
    mayControl = hello.may_control;
    streamNumber = hello.stream;
    element('previous').hidden = !mayControl;
    element('next').hidden = !mayControl;
    element('fit').hidden = !hello.may_fit;
    Ferolin.translate(settings.language || hello.language);
    showState();
  }

  function view(news) {
    if (news.left) {
      leave();
      return;
    }
    wanted = news;
    fetchNewest();
  }

  var stream = { state: 'connecting' };
  Ferolin.translate(settings.language);
  stream = new Ferolin.Stream('/events?views=1',
    { hello: greet, update: function () {}, view: view }, showState);
  showState();
  Ferolin.keepAwake(function () {});
})();
