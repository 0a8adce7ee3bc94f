// The read-outs as texts, in the units and the language of the driver.

// Units by their key: how many of them one m/s, m and m of height are.
Ferolin.UNITS = {
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

/// settings.unit: a key of the units, read whenever a text is made.
Ferolin.Readouts = function (settings) {
  'use strict';

  var NOTHING = '–';

  function unit() {
    return Ferolin.UNITS[settings.unit];
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
    return time.getHours() + ':' + twoDigits(time.getMinutes()) + ':' +
      twoDigits(time.getSeconds());
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
    ['movingAverage', 'Moving average', 'Ср. в движении', field('moving_average_speed_mps'),
      speedValue],
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
    var isLong = metres >= 1000;
    var length = isLong ? metres / 1000 : metres;
    TILES.push(['best' + metres, 'Best ' + length + (isLong ? ' km' : ' m'),
      'Лучшие ' + length + (isLong ? ' км' : ' м'),
      bestOf('fastest_s', metres + '_m'), secondsValue]);
  });

  function findTile(key) {
    return TILES.filter(function (tile) { return tile[0] === key; })[0];
  }

  function tileName(tile) {
    return tile[Ferolin.getLanguage() === 'ru' ? 2 : 1];
  }

  /// `readouts`: null while there are none.
  function tileValue(tile, readouts) {
    var value = readouts ? tile[3](readouts) : null;
    if (value === null || value === undefined || value === '') {
      return [NOTHING, ''];
    }
    return Array.isArray(tile[4]) ? [tile[4][0](value), ''] : tile[4](value);
  }

  this.tiles = TILES;
  this.unit = unit;
  this.unitName = unitName;
  this.figureText = figureText;
  this.distanceText = function (metres) {
    return distanceValue(metres).join(' ');
  };
  this.timeText = timeText;
  this.findTile = findTile;
  this.tileName = tileName;
  this.tileValue = tileValue;
};
